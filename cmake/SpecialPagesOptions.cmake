# Flags that every target of this project is compiled and linked with.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
    set(CMAKE_C_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(specialpages_options INTERFACE)
target_compile_options(specialpages_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion)
# A package is built by compilers and with flags that nobody has seen yet: there a warning stays one.
if(SPECIALPAGES_WERROR)
    target_compile_options(specialpages_options INTERFACE -Werror)
endif()
# g++ 12 takes "text" + std::string for an overlapping copy when it inlines as much as -O3 does (GCC bug 105651).
target_compile_options(specialpages_options INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
# Length conversions keep single-rounded steps; a fused multiply-add would round once for two operations.
target_compile_options(specialpages_options INTERFACE -ffp-contract=off)

# Sanitizers and counters concern third-party code linked statically too (GoogleTest is not), so they are global.
if(SPECIALPAGES_SANITIZE)
    add_compile_options("-fsanitize=${SPECIALPAGES_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options("-fsanitize=${SPECIALPAGES_SANITIZE}")
endif()
if(SPECIALPAGES_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
if(SPECIALPAGES_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "SPECIALPAGES_FUZZ needs clang: use the preset 'fuzz'")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
