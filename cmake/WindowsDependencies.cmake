# The libraries of the Windows build, as .ci/windows-deps has made them.

find_package(pugixml REQUIRED)
find_package(ZLIB REQUIRED)
find_package(libzip REQUIRED)

foreach(name IN ITEMS CLI11 nlohmann_json)
  add_library(${name} INTERFACE)
  target_include_directories(${name} SYSTEM INTERFACE ${VELLUMARK_WINDOWS_DEPS}/headers)
endforeach()
add_library(CLI11::CLI11 ALIAS CLI11)
add_library(nlohmann_json::nlohmann_json ALIAS nlohmann_json)

if(BUILD_TESTING OR NOT DEFINED BUILD_TESTING)
  # Debian's package of googletest brings its source.
  set(gtest_force_shared_crt ON)
  set(INSTALL_GTEST OFF)
  add_subdirectory(/usr/src/googletest/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  if(NOT TARGET GTest::gtest_main)
    add_library(GTest::gtest_main ALIAS gtest_main)
    add_library(GTest::gtest ALIAS gtest)
  endif()
endif()
