# A room is a folder of src/. Its files build one core library, zelkor_<last name of the folder>, that links no Qt;
# files whose name begins Frm or frm are screens and build zelkor_<last name of the folder>_forms. A folder below it is
# part of it, unless that is a room of its own.
set(ZELKOR_INNER_ROOMS store/engine/sqlite store/engine/postgresql transfer/jet transfer/backup)

add_library(zelkor_options INTERFACE)
target_compile_options(zelkor_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(ZELKOR_WARNINGS_AS_ERRORS)
  target_compile_options(zelkor_options INTERFACE -Werror)
endif()
if(ZELKOR_SANITIZERS)
  # With the sanitizers' own code in between, the compiler takes parts of a std::variant for uninitialized.
  target_compile_options(zelkor_options INTERFACE
    -fsanitize=${ZELKOR_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer -Wno-maybe-uninitialized)
  target_link_options(zelkor_options INTERFACE -fsanitize=${ZELKOR_SANITIZERS})
endif()

find_program(ZELKOR_CCACHE ccache)
if(ZELKOR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers are cached, too, where the cache need not mind their macros and times.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${ZELKOR_CCACHE})
endif()

# What most files include is parsed once. ccache needs -fpch-preprocess to see through a precompiled header of GCC.
target_compile_options(zelkor_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
# GCC 12 takes the moving and joining of short texts for copies beyond all bounds.
target_compile_options(zelkor_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow;-Wno-stringop-overread>)
set(ZELKOR_COMMON_HEADERS <algorithm> <array> <charconv> <chrono> <cstdint> <filesystem> <fstream> <functional>
  <map> <memory> <optional> <set> <span> <sstream> <stdexcept> <string> <string_view> <tuple> <unordered_map> <utility>
  <variant> <vector>)
add_library(zelkor_common_headers STATIC ${CMAKE_SOURCE_DIR}/cmake/Empty.cpp)
target_link_libraries(zelkor_common_headers PRIVATE zelkor_options)
target_precompile_headers(zelkor_common_headers PRIVATE ${ZELKOR_COMMON_HEADERS})

# zelkor_room(<folder> [<library this room may call> ...])
function(zelkor_room folder)
  get_filename_component(room ${folder} NAME)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp)
  list(FILTER files EXCLUDE REGEX "/[Ff]rm[^/]*\\.cpp$")
  foreach(inner IN LISTS ZELKOR_INNER_ROOMS)
    if(inner MATCHES "^${folder}/")
      list(FILTER files EXCLUDE REGEX "/src/${inner}/")
    endif()
  endforeach()
  add_library(zelkor_${room} STATIC ${files})
  target_include_directories(zelkor_${room} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(zelkor_${room} PUBLIC ${ARGN} PRIVATE zelkor_options)
  target_precompile_headers(zelkor_${room} REUSE_FROM zelkor_common_headers)
  zelkor_note_library(zelkor_${room} ${folder} core ${ARGN})
endfunction()

# zelkor_ui([<library that all screens may call> ...]): what screens are built from, src/ui, as the library zelkor_ui
function(zelkor_ui)
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/ui/*.cpp)
  add_library(zelkor_ui STATIC ${files})
  set_target_properties(zelkor_ui PROPERTIES AUTOMOC ON)
  target_link_libraries(zelkor_ui PUBLIC ${ARGN} Qt6::Widgets PRIVATE zelkor_options)
  target_precompile_headers(zelkor_ui PRIVATE ${ZELKOR_COMMON_HEADERS} <QtWidgets>)
  zelkor_note_library(zelkor_ui ui core ${ARGN})
endfunction()

# zelkor_forms(<folder> [<library the screens may call besides ui and their room's core> ...])
function(zelkor_forms folder)
  get_filename_component(room ${folder} NAME)
  set(forms zelkor_${room}_forms)
  file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/[Ff]rm*.cpp)
  add_library(${forms} STATIC ${files})
  set_target_properties(${forms} PROPERTIES AUTOMOC ON)
  target_link_libraries(${forms} PUBLIC zelkor_${room} zelkor_ui ${ARGN} PRIVATE zelkor_options)
  target_precompile_headers(${forms} REUSE_FROM zelkor_ui)
  zelkor_note_library(${forms} ${folder} forms zelkor_${room} zelkor_ui ${ARGN})
endfunction()

# What CheckRooms.cmake is told of each library.
function(zelkor_note_library library folder kind)
  list(FILTER ARGN INCLUDE REGEX "^zelkor_")
  list(JOIN ARGN "," edges)
  set_property(GLOBAL APPEND_STRING PROPERTY ZELKOR_LIBRARIES "${library}|${folder}|${kind}|${edges}\n")
endfunction()

function(zelkor_write_rooms)
  get_property(libraries GLOBAL PROPERTY ZELKOR_LIBRARIES)
  file(WRITE ${CMAKE_BINARY_DIR}/rooms.txt "${libraries}")
endfunction()

# Inner rooms whose tests are a program of their own; those of the others belong to the room around them.
set(ZELKOR_INNER_TESTS transfer/jet)

# zelkor_room_tests(<folder> [<library> ...]): tests/<folder>/*.cpp as one GoogleTest program
function(zelkor_room_tests folder)
  get_filename_component(room ${folder} NAME)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp)
  foreach(inner IN LISTS ZELKOR_INNER_TESTS)
    if(inner MATCHES "^${folder}/")
      list(FILTER files EXCLUDE REGEX "/tests/${inner}/")
    endif()
  endforeach()
  add_executable(zelkor_${room}_tests ${files})
  target_include_directories(zelkor_${room}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(zelkor_${room}_tests PRIVATE zelkor_test_options zelkor_test_paths ${ARGN} GTest::gtest GTest::gtest_main GTest::gmock)
  target_precompile_headers(zelkor_${room}_tests REUSE_FROM zelkor_test_headers)
  gtest_discover_tests(zelkor_${room}_tests NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60)
endfunction()
