# SPDX-License-Identifier: MIT
# ZOR_SANITIZE names what every target is instrumented with; a finding ends the process.
if(ZOR_SANITIZE)
    add_compile_options(-fsanitize=${ZOR_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZOR_SANITIZE})
endif()
if(ZOR_FUZZ)
    # Without it the fuzzer would see nothing of what its harness calls.
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()
