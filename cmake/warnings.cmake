# SPDX-License-Identifier: MIT
# Warnings are errors everywhere; a target of ours links zor_warnings.
add_library(zor_warnings INTERFACE)
target_compile_options(zor_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wimplicit-fallthrough -Werror)
