# One way to declare a library of this project: a shared and a static form of the same objects,
# with warnings as errors, hidden visibility and an alias in the zantms:: namespace.

add_library(zantms_warnings INTERFACE)
target_compile_options(zantms_warnings INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor
                       $<$<BOOL:${ZANTMS_WERROR}>:-Werror>)

# zantms_library(NAME SOURCES ... INCLUDE dir PRIVATE_INCLUDE dir... LINK libs...)
#
# Makes the targets NAME (shared) and NAME_static and the aliases zantms::NAME and
# zantms::NAME_static. LINK names other libraries of the project by their shared target.
function(zantms_library name)
  cmake_parse_arguments(arg "" "INCLUDE" "SOURCES;PRIVATE_INCLUDE;LINK" ${ARGN})
  add_library(${name}_objects OBJECT ${arg_SOURCES})
  target_include_directories(${name}_objects PUBLIC ${arg_INCLUDE} PRIVATE ${arg_PRIVATE_INCLUDE})
  target_link_libraries(${name}_objects PRIVATE zantms_warnings ${arg_LINK})

  add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
  target_link_libraries(${name} PUBLIC ${arg_LINK})
  add_library(${name}_static STATIC $<TARGET_OBJECTS:${name}_objects>)
  list(TRANSFORM arg_LINK APPEND _static)
  target_link_libraries(${name}_static PUBLIC ${arg_LINK})
  set_target_properties(${name}_static PROPERTIES OUTPUT_NAME ${name})

  foreach(target IN ITEMS ${name} ${name}_static)
    add_library(zantms::${target} ALIAS ${target})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                               SOVERSION ${PROJECT_VERSION_MAJOR})
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${arg_INCLUDE}>
                                                $<INSTALL_INTERFACE:include/zantms>)
  endforeach()
endfunction()
