# Targets: zantms::zantms, zantms::zanin, zantms::zanbs, and each of them with _static.
include(${CMAKE_CURRENT_LIST_DIR}/zantmsTargets.cmake)
