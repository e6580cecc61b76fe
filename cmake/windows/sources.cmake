# SPDX-License-Identifier: MIT
# There are no packages of libraries for Windows here, so they are built from the sources that Debian's packages are
# made of: tools/test-windows fetches them. What they warn of is theirs to mend.
set(ZOR_SQLITECPP_SOURCE "" CACHE PATH "The unpacked source of SQLiteCpp, which has SQLite in it")
set(ZOR_GTEST_SOURCE /usr/src/googletest CACHE PATH "The source of GoogleTest")

function(zor_need_source variable file)
    if(NOT EXISTS "${${variable}}/${file}")
        message(FATAL_ERROR "${variable} names no folder with ${file}; tools/test-windows gives it.")
    endif()
endfunction()

function(zor_foreign_library name)
    add_library(${name} STATIC ${ARGN})
    target_compile_options(${name} PRIVATE -w)
endfunction()
