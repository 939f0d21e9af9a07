# Two kinds of targets, one per folder and layer: NAME (the engine, standard library only) and NAME_window (Qt).
#
# A target's headers are reached as "folder/header.h" through a link in the build tree that is on the include path of
# exactly those targets that link to it. A folder can therefore only see the folders that its arrows name.

add_library(quorvane_warnings INTERFACE)
target_compile_options(quorvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror)
# GCC 12 takes `"literal" + std::string` for an overlapping copy (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(quorvane_warnings INTERFACE -Wno-restrict)
endif()

add_library(quorvane_engine_options INTERFACE)
if(QUORVANE_PLAIN)
  target_compile_definitions(quorvane_engine_options INTERFACE QUORVANE_PLAIN)
elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  target_compile_options(quorvane_engine_options INTERFACE -march=x86-64-v2)
endif()
if(QUORVANE_SANITIZE)
  target_compile_options(quorvane_engine_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                           -fno-omit-frame-pointer)
  target_link_options(quorvane_engine_options INTERFACE -fsanitize=address,undefined)
endif()

function(quorvane_include_link folder)
  set(root ${CMAKE_BINARY_DIR}/include/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
endfunction()

# quorvane_engine(NAME SOURCES file... DEPENDS engine-target...)
function(quorvane_engine name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  quorvane_include_link(${name})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_BINARY_DIR}/include/${name})
  target_link_libraries(${name} PUBLIC quorvane_engine_options ${ARG_DEPENDS} PRIVATE quorvane_warnings)
endfunction()

# quorvane_window(FOLDER SOURCES file... DEPENDS target...): adds FOLDER_window on top of FOLDER, where that exists.
function(quorvane_window folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  quorvane_include_link(${folder})
  list(TRANSFORM ARG_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/${folder}/)
  add_library(${folder}_window STATIC ${ARG_SOURCES})
  set_target_properties(${folder}_window PROPERTIES AUTOMOC ON)
  target_include_directories(${folder}_window PUBLIC ${CMAKE_BINARY_DIR}/include/${folder})
  if(TARGET ${folder})
    target_link_libraries(${folder}_window PUBLIC ${folder})
  endif()
  target_link_libraries(${folder}_window PUBLIC ${ARG_DEPENDS} Qt6::Widgets PRIVATE quorvane_warnings)
endfunction()
