# The few functions by which every folder of the project declares what it builds.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()
find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

function(vellumark_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
                         -Wno-restrict)  # g++ 12 finds false ones in "text" + std::string
  if(WIN32)
    target_compile_options(${target} PRIVATE -Wno-non-virtual-dtor)  # COM's interfaces have no destructors
  endif()
  if(VELLUMARK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(VELLUMARK_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# vellumark_library(NAME SOURCES... [LIBS targets...]): the static library vellumark_NAME of folder src/NAME.
# Headers are included from src/ ("base/error.h").
function(vellumark_library name)
  cmake_parse_arguments(ARG "" "" "LIBS" ${ARGN})
  add_library(vellumark_${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
  target_include_directories(vellumark_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(vellumark_${name} PUBLIC ${ARG_LIBS})
  vellumark_options(vellumark_${name})
endfunction()

# vellumark_test(NAME SOURCES... [LIBS targets...] [LOCK resource]): the test program test_NAME, its cases known to ctest.
# Cases with the same LOCK don't run at the same time.
# TEST_SHARED_DECKS names the folder of decks from elsewhere; a test that needs them skips where it is missing.
function(vellumark_test name)
  cmake_parse_arguments(ARG "" "LOCK" "LIBS" ${ARGN})
  add_executable(test_${name} ${ARG_UNPARSED_ARGUMENTS})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE ${ARG_LIBS} GTest::gtest_main)
  target_compile_definitions(test_${name} PRIVATE
    TEST_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TEST_SHARED_DECKS="${PROJECT_SOURCE_DIR}/../shared/decks")
  vellumark_options(test_${name})
  target_compile_options(test_${name} PRIVATE -O0)  # what is tested is optimised; this takes half the time to compile
  if(WIN32)
    add_test(NAME windows.${name} COMMAND test_${name})  # one start of Wine for all of its cases
  else()
    set(lock)
    if(ARG_LOCK)
      set(lock RESOURCE_LOCK ${ARG_LOCK})
    endif()
    gtest_discover_tests(test_${name} DISCOVERY_TIMEOUT 120 PROPERTIES TIMEOUT 600 ${lock})
  endif()
endfunction()
