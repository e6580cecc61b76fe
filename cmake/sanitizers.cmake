# SPDX-License-Identifier: MIT
# ZOR_SANITIZE names what every target is instrumented with; a finding ends the process.
if(ZOR_SANITIZE)
    add_compile_options(-fsanitize=${ZOR_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZOR_SANITIZE})
endif()
