# One way to declare a library of this project: a shared and a static form of the same objects,
# with warnings as errors, hidden visibility and an alias in the zantms:: namespace.

add_library(zantms_warnings INTERFACE)
target_compile_options(zantms_warnings INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor
                       $<$<BOOL:${ZANTMS_WERROR}>:-Werror>)

include(GNUInstallDirs)
set(ZANTMS_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/zantms)
set(ZANTMS_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/zantms)
set(ZANTMS_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# zantms_library(NAME DESCRIPTION text SOURCES ... INCLUDE dir PRIVATE_INCLUDE dir... LINK libs...)
#
# Makes the targets NAME (shared) and NAME_static and the aliases zantms::NAME and
# zantms::NAME_static, and installs both with the headers of INCLUDE and a pkg-config file. LINK
# names other libraries of the project by their shared target.
function(zantms_library name)
  cmake_parse_arguments(arg "" "DESCRIPTION;INCLUDE" "SOURCES;PRIVATE_INCLUDE;LINK" ${ARGN})
  add_library(${name}_objects OBJECT ${arg_SOURCES})
  target_include_directories(${name}_objects PUBLIC ${arg_INCLUDE} PRIVATE ${arg_PRIVATE_INCLUDE})
  target_link_libraries(${name}_objects PRIVATE zantms_warnings ${arg_LINK})
  # Nobody replaces single functions of the library: its calls to itself may be direct.
  target_compile_options(${name}_objects PRIVATE -fno-semantic-interposition)

  add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  add_library(${name}_static STATIC $<TARGET_OBJECTS:${name}_objects>)
  list(TRANSFORM arg_LINK APPEND _static OUTPUT_VARIABLE static_links)
  target_link_libraries(${name}_static PUBLIC ${static_links})
  set_target_properties(${name}_static PROPERTIES OUTPUT_NAME ${name})

  foreach(target IN ITEMS ${name} ${name}_static)
    add_library(zantms::${target} ALIAS ${target})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                               SOVERSION ${PROJECT_VERSION_MAJOR}
                                               INSTALL_RPATH "$ORIGIN")
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${arg_INCLUDE}>
                                                $<INSTALL_INTERFACE:${ZANTMS_INCLUDE_DIR}>)
  endforeach()

  install(TARGETS ${name} ${name}_static EXPORT zantmsTargets)
  install(DIRECTORY ${arg_INCLUDE}/ DESTINATION ${ZANTMS_INCLUDE_DIR} FILES_MATCHING PATTERN *.h)
  set(description ${arg_DESCRIPTION})
  list(JOIN arg_LINK " " requires)
  file(RELATIVE_PATH prefix_from_here ${CMAKE_INSTALL_PREFIX}/${ZANTMS_PKGCONFIG_DIR}
       ${CMAKE_INSTALL_PREFIX})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${ZANTMS_PKGCONFIG_DIR})
endfunction()

# Installs what find_package(zantms) reads.
function(zantms_package)
  include(CMakePackageConfigHelpers)
  install(EXPORT zantmsTargets NAMESPACE zantms:: DESTINATION ${ZANTMS_PACKAGE_DIR})
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/zantmsConfigVersion.cmake
                                   COMPATIBILITY SameMajorVersion)
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/zantmsConfig.cmake
                ${PROJECT_BINARY_DIR}/zantmsConfigVersion.cmake DESTINATION ${ZANTMS_PACKAGE_DIR})
endfunction()
