# Compiler settings of our own targets, by way of `rulemesh_options`; nothing here reaches a host that embeds us.

add_library(rulemesh_options INTERFACE)

target_compile_options(rulemesh_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion
    # Clang counts changes of sign as conversions, g++ does not; one rule for both.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
    # g++ 12 takes `"x" + std::string` for overlapping copies when it optimises (its bug 105651).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # The libraries are position independent; nobody replaces their functions at load, as g++ would provide for.
    $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)

if(RULEMESH_WERROR)
    target_compile_options(rulemesh_options INTERFACE -Werror)
endif()

if(RULEMESH_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(rulemesh_options INTERFACE ${sanitizers})
    target_link_options(rulemesh_options INTERFACE ${sanitizers})
endif()

if(RULEMESH_COVERAGE)
    target_compile_options(rulemesh_options INTERFACE --coverage)
    target_link_options(rulemesh_options INTERFACE --coverage)
endif()

if(RULEMESH_FUZZ)
    # Coverage for the fuzzer in every library; its main function only in the fuzzers themselves.
    target_compile_options(rulemesh_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(rulemesh_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
    find_program(RULEMESH_CCACHE ccache)
    if(RULEMESH_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${RULEMESH_CCACHE}")
    endif()
endif()
