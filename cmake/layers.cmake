# A function for each layer of the house. A target links what its layer may see and nothing more,
# so that an include that goes up, or sideways into a backend, does not compile.
#
#   norvane_platform_interfaces(NAME sources...)      QtCore
#   norvane_logic(NAME sources... LINK targets...)    QtCore, interfaces, other logic
#   norvane_windows(NAME sources... LINK targets...)  QtWidgets, logic, other windows
#   norvane_backend(NAME sources... LINK targets...)  interfaces, and the libraries that it wraps
#
# Logic also reaches headers by "folder/file.h" below src; to keep it out of the backends' and the
# windows' headers those need libraries (xcb, sqlite, QtWidgets) whose include folders logic lacks.

add_library(norvane_build_options INTERFACE)
target_compile_definitions(norvane_build_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(norvane_build_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${NORVANE_WERROR}>:-Werror>)
target_include_directories(norvane_build_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(NORVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

function(_norvane_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;QT")
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC norvane_build_options ${arg_LINK} ${arg_QT})
endfunction()

# Fails the configuration when a target of one layer links a target of another that it may not see.
function(_norvane_only name allowed)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "LINK")
  foreach(target IN LISTS arg_LINK)
    get_target_property(layer ${target} NORVANE_LAYER)
    if(NOT layer IN_LIST allowed)
      message(FATAL_ERROR "${name} may not link ${target}, which is of layer '${layer}'")
    endif()
  endforeach()
endfunction()

function(norvane_platform_interfaces name)
  _norvane_library(${name} ${ARGN} QT Qt6::Core)
  set_target_properties(${name} PROPERTIES NORVANE_LAYER platform)
endfunction()

function(norvane_logic name)
  _norvane_only(${name} "platform;logic" ${ARGN})
  _norvane_library(${name} ${ARGN} QT Qt6::Core)
  set_target_properties(${name} PROPERTIES NORVANE_LAYER logic)
endfunction()

function(norvane_windows name)
  _norvane_only(${name} "platform;logic;windows" ${ARGN})
  _norvane_library(${name} ${ARGN} QT Qt6::Widgets)
  set_target_properties(${name} PROPERTIES NORVANE_LAYER windows)
endfunction()

# LIBRARIES are what the backend wraps; they stay its own.
function(norvane_backend name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK;LIBRARIES")
  _norvane_only(${name} "platform" LINK ${arg_LINK})
  _norvane_library(${name} ${arg_UNPARSED_ARGUMENTS} LINK ${arg_LINK})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
  set_target_properties(${name} PROPERTIES NORVANE_LAYER backend)
endfunction()

# Compiles pictures into a target, where its code finds them as ":/norvane/icons/NAME".
function(norvane_icons target)
  set(files)
  foreach(icon IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH icon NORMALIZE OUTPUT_VARIABLE file)
    cmake_path(GET file FILENAME name)
    set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name})
    list(APPEND files ${file})
  endforeach()
  qt_add_resources(${target} ${target}_icons PREFIX /norvane/icons FILES ${files})
endfunction()
