# Warnings and sanitizers live in interface targets; every target of the project links both.
add_library(kv_warnings INTERFACE)
target_compile_options(kv_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused
    -Wnull-dereference -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
    # GCC 12 sees uninitialised values inside std::optional where there are none.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    $<$<BOOL:${KALVORA_WERROR}>:-Werror>)

if(NOT CMAKE_UNITY_BUILD) # where a name of one source seems to hide that of another
    target_compile_options(kv_warnings INTERFACE -Wshadow)
endif()

add_library(kv_sanitizers INTERFACE)
if(KALVORA_SANITIZER)
    # -O1 keeps the instrumented suite quick enough to run in full.
    target_compile_options(kv_sanitizers INTERFACE
        -fsanitize=${KALVORA_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1 -O1)
    target_link_options(kv_sanitizers INTERFACE -fsanitize=${KALVORA_SANITIZER})
endif()
