# A room is a folder of src/. Its files build one core library, zelkor_<room>, that links no Qt;
# files whose name begins Frm or frm are screens and go into zelkor_forms instead.

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
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ZELKOR_CCACHE})
endif()

# zelkor_room(<room> [<library this room may call> ...])
function(zelkor_room room)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${room}/*.cpp)
  list(FILTER files EXCLUDE REGEX "/[Ff]rm[^/]*\\.cpp$")
  if(files)
    add_library(zelkor_${room} STATIC ${files})
    set(scope PUBLIC)
    target_link_libraries(zelkor_${room} PRIVATE zelkor_options)
  else()
    add_library(zelkor_${room} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(zelkor_${room} ${scope} ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(zelkor_${room} ${scope} ${ARGN})
  set_property(GLOBAL APPEND PROPERTY ZELKOR_ROOMS zelkor_${room})
endfunction()

# zelkor_room_tests(<room> [<library> ...]): tests/<room>/*.cpp as one GoogleTest program, its tests with
# ZELKOR_TEST_PROPERTIES
function(zelkor_room_tests room)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${room}/*.cpp)
  if(NOT files)
    return()
  endif()
  add_executable(zelkor_${room}_tests ${files})
  target_include_directories(zelkor_${room}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_definitions(zelkor_${room}_tests PRIVATE
    ZELKOR_TEST_SOURCE_DIR="${CMAKE_SOURCE_DIR}/tests"
    ZELKOR_DATA_DIR="${CMAKE_SOURCE_DIR}/data"
    ZELKOR_SHARED_DATA_DIR="${CMAKE_SOURCE_DIR}/../shared/data")
  target_link_libraries(zelkor_${room}_tests PRIVATE zelkor_options ${ARGN} GTest::gtest GTest::gtest_main GTest::gmock)
  gtest_discover_tests(zelkor_${room}_tests NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 ${ZELKOR_TEST_PROPERTIES})
endfunction()
