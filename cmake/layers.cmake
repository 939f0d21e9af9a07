# Two kinds of targets, one per folder and layer: NAME (the engine, standard library only) and NAME_window (Qt), made of
# the files in NAME/ and NAME/window/. A header is included as "folder/header.h"; which folder may include which is held
# by tests/check_layers.py.

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
if(NOT QUORVANE_PLAIN AND CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  set(QUORVANE_WIDER_VECTORS ON)
  target_compile_definitions(quorvane_engine_options INTERFACE QUORVANE_WIDER_VECTORS)
endif()
if(QUORVANE_SANITIZE)
  target_compile_options(quorvane_engine_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                           -fno-omit-frame-pointer)
  target_link_options(quorvane_engine_options INTERFACE -fsanitize=address,undefined)
endif()
if(QUORVANE_FUZZ)
  target_compile_options(quorvane_engine_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# quorvane_engine(NAME SOURCES file... DEPENDS engine-target...)
function(quorvane_engine name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC quorvane_engine_options ${ARG_DEPENDS} PRIVATE quorvane_warnings)
endfunction()

# quorvane_wider_vectors(NAME FILE): adds FILE_avx2.cpp and FILE_avx512.cpp, compiled for vectors of 32 and of 64 bytes.
# The program asks the machine which it has (base/vector_width).
function(quorvane_wider_vectors name file)
  if(QUORVANE_WIDER_VECTORS)
    # GCC 12 takes the headers' own undefined vectors for ours (its bug 105593).
    set(quiet)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      set(quiet ";-Wno-uninitialized;-Wno-maybe-uninitialized")
    endif()
    target_sources(${name} PRIVATE ${file}_avx2.cpp ${file}_avx512.cpp)
    set_source_files_properties(${file}_avx2.cpp PROPERTIES COMPILE_OPTIONS "-mavx2;-mbmi2")
    set_source_files_properties(${file}_avx512.cpp PROPERTIES
                                COMPILE_OPTIONS "-mavx512bw;-mavx512vl;-mavx512vbmi2;-mbmi2;-mprefer-vector-width=512${quiet}")
  endif()
endfunction()

# quorvane_window(NAME SOURCES file... DEPENDS target...): adds NAME_window on top of NAME, where that exists.
function(quorvane_window name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name}_window STATIC ${ARG_SOURCES})
  set_target_properties(${name}_window PROPERTIES AUTOMOC ON)
  target_include_directories(${name}_window PUBLIC ${PROJECT_SOURCE_DIR})
  if(TARGET ${name})
    target_link_libraries(${name}_window PUBLIC ${name})
  endif()
  target_link_libraries(${name}_window PUBLIC ${ARG_DEPENDS} Qt6::Widgets PRIVATE quorvane_warnings)
endfunction()
