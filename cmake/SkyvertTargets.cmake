# The compile options of all targets, and two functions that declare targets.

add_library(skyvert_options INTERFACE)
target_include_directories(skyvert_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(skyvert_options INTERFACE /W4 /utf-8 /fp:precise)
else()
  # No contraction: a fused multiply-add rounds once, a multiplication and an addition round twice.
  target_compile_options(skyvert_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -ffp-contract=off)
endif()
# Debian asks for hardened packages that do not depend on the folder in which they are built.
if(UNIX AND NOT APPLE)
  set(hardening -fstack-protector-strong -D_FORTIFY_SOURCE=2)
  target_compile_options(skyvert_options INTERFACE
    "$<$<CONFIG:Release>:${hardening};-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")
  target_link_options(skyvert_options INTERFACE "$<$<CONFIG:Release>:LINKER:-z,relro,-z,now>")
endif()
if(SKYVERT_SANITIZE)
  # `undefined` does not include casts of floating-point numbers out of range.
  set(sanitizers -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_compile_definitions(skyvert_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_compile_options(skyvert_options INTERFACE ${sanitizers}
    # With sanitizers, GCC 12 wrongly reports members of a moved-from std::variant as uninitialized.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(skyvert_options INTERFACE ${sanitizers})
endif()
if(SKYVERT_FUZZERS)
  set(fuzzers -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow
    -fno-sanitize-recover=all)
  target_compile_options(skyvert_options INTERFACE ${fuzzers})
  target_link_options(skyvert_options INTERFACE ${fuzzers})
endif()
if(SKYVERT_COVERAGE)
  target_compile_options(skyvert_options INTERFACE --coverage)
  target_link_options(skyvert_options INTERFACE --coverage)
endif()

# skyvert_layer(NAME SOURCES file... [PUBLIC lib...] [PRIVATE lib...])
# The static library of one folder below src/, linked to the layers that src/layers.txt allows and
# to the given third-party libraries.
function(skyvert_layer name)
  cmake_parse_arguments(layer "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(skyvert_${name} STATIC ${layer_SOURCES})
  target_link_libraries(skyvert_${name}
    PUBLIC skyvert_options ${skyvert_below_${name}} ${layer_PUBLIC} PRIVATE ${layer_PRIVATE})
endfunction()

# skyvert_test(FOLDER SOURCES file... LIBRARIES lib...)
# The test program of one folder below tests/. CTest runs each of its tests by name.
function(skyvert_test folder)
  cmake_parse_arguments(test "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${folder}_tests ${test_SOURCES})
  target_include_directories(${folder}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${folder}_tests PRIVATE ${test_LIBRARIES} GTest::gtest_main)
  target_compile_definitions(${folder}_tests PRIVATE
    SKYVERT_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  # Lists the tests when CTest runs, not after the build: only then is their environment set.
  gtest_discover_tests(${folder}_tests DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)
endfunction()
