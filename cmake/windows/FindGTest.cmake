# SPDX-License-Identifier: MIT
include(${CMAKE_CURRENT_LIST_DIR}/sources.cmake)
set(GTest_FOUND TRUE)
if(TARGET GTest::gtest)
    return()
endif()
zor_need_source(ZOR_GTEST_SOURCE googletest/src/gtest-all.cc)
set(gtest_folder ${ZOR_GTEST_SOURCE}/googletest)
set(gmock_folder ${ZOR_GTEST_SOURCE}/googlemock)

zor_foreign_library(zor_gtest ${gtest_folder}/src/gtest-all.cc)
target_include_directories(zor_gtest PRIVATE ${gtest_folder})
target_include_directories(zor_gtest SYSTEM PUBLIC ${gtest_folder}/include)
add_library(GTest::gtest ALIAS zor_gtest)

zor_foreign_library(zor_gtest_main ${gtest_folder}/src/gtest_main.cc)
target_link_libraries(zor_gtest_main PUBLIC zor_gtest)
add_library(GTest::gtest_main ALIAS zor_gtest_main)

zor_foreign_library(zor_gmock ${gmock_folder}/src/gmock-all.cc)
target_include_directories(zor_gmock PRIVATE ${gmock_folder})
target_include_directories(zor_gmock SYSTEM PUBLIC ${gmock_folder}/include)
target_link_libraries(zor_gmock PUBLIC zor_gtest)
add_library(GTest::gmock ALIAS zor_gmock)
