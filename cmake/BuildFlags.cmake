# The flags of every target of ours. Warnings become errors in the presets, not here.
add_library(kest_build_flags INTERFACE)
target_compile_options(kest_build_flags INTERFACE
    -ffp-contract=off # fused multiply-adds would give the filter other bits
    $<$<CXX_COMPILER_ID:GNU>:-fno-tree-loop-vectorize> # loops are short here: it takes room and saves no time
    -ffunction-sections -fdata-sections # so that the libraries' links can leave out what nothing calls
    $<$<PLATFORM_ID:Linux>:-ftls-model=initial-exec> # else first use in a loaded library takes memory, or aborts
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wformat=2
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
    $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>)
