# SPDX-License-Identifier: MIT
# Warnings are errors everywhere; a target of ours links zor_warnings.
add_library(zor_warnings INTERFACE)
target_compile_options(zor_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wimplicit-fallthrough -Werror
    # Designated initialisers name what they set; the rest has its default.
    -Wno-missing-field-initializers
    # GCC 12 sees overlaps in the standard library's string concatenation that are not there.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # It takes the value of an empty optional, or a member of a row made in place, for one that is read unset, as soon
    # as it inlines or instruments; the sanitizers and clang-tidy look for the real ones.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    # A constructor's parameter may bear its member's name.
    $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>)
