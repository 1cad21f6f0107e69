# One way to declare a library of this project: a shared and a static form made of the same
# objects, with warnings as errors, hidden visibility and an alias in the zantms:: namespace.

add_library(zantms_warnings INTERFACE)
target_compile_options(zantms_warnings INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor
                       $<$<BOOL:${ZANTMS_WERROR}>:-Werror>)

# zantms_library(NAME SOURCES ... INCLUDE dir PRIVATE_INCLUDE dir... LINK libs...)
#
# Makes the targets NAME (shared) and NAME_static and the aliases zantms::NAME and
# zantms::NAME_static. LINK names other libraries of the project by their shared target.
function(zantms_library name)
  cmake_parse_arguments(arg "" "INCLUDE" "SOURCES;PRIVATE_INCLUDE;LINK" ${ARGN})
  foreach(form IN ITEMS shared static)
    if(form STREQUAL shared)
      set(target ${name})
      add_library(${target} SHARED ${arg_SOURCES})
      target_link_libraries(${target} PUBLIC ${arg_LINK})
    else()
      set(target ${name}_static)
      add_library(${target} STATIC ${arg_SOURCES})
      list(TRANSFORM arg_LINK APPEND _static OUTPUT_VARIABLE static_links)
      target_link_libraries(${target} PUBLIC ${static_links})
      set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name})
    endif()
    add_library(zantms::${target} ALIAS ${target})
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:zantms_warnings>)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${arg_INCLUDE}>
                                                $<INSTALL_INTERFACE:include/zantms>
                               PRIVATE ${arg_PRIVATE_INCLUDE})
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION}
                          SOVERSION ${PROJECT_VERSION_MAJOR})
  endforeach()
endfunction()
