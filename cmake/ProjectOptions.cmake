# Compiler options of all targets, linked PRIVATE so that no consumer gets them.
add_library(quillmere_options INTERFACE)
target_compile_features(quillmere_options INTERFACE cxx_std_20)
# Fused multiply-add would give different results on machines that have it.
target_compile_options(quillmere_options INTERFACE -ffp-contract=off)

if(PROJECT_IS_TOP_LEVEL)
    target_compile_options(quillmere_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(QUILLMERE_WARNINGS_ARE_ERRORS)
        target_compile_options(quillmere_options INTERFACE -Werror)
    endif()
    if(QUILLMERE_SANITIZE)
        set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_compile_options(quillmere_options INTERFACE ${sanitizers})
        target_link_options(quillmere_options INTERFACE ${sanitizers})
        # A program that can be loaded anywhere has 1.8 million relocations under sanitizers: half of the time
        # of its start, and there are thousands of starts. The linker is binutils' faster one.
        set(executable $<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>)
        target_link_options(quillmere_options INTERFACE $<${executable}:-no-pie> $<${executable}:-fuse-ld=gold>)
    endif()
endif()

# For what takes longer to compile than to run: the program and the tests. Not optimised, and without the checks
# of pointers that are a fifth of the time of a build under sanitizers; most of what they find the address
# sanitizer finds too.
add_library(quillmere_quick_build INTERFACE)
target_compile_options(quillmere_quick_build INTERFACE $<$<CONFIG:Debug>:-O0>)
if(QUILLMERE_SANITIZE)
    target_compile_options(quillmere_quick_build INTERFACE -fno-sanitize=null,alignment,object-size,vptr)
endif()

# A full build takes half the time when several files are compiled as one. After a change of one file it takes
# longer, and it hides missing includes.
function(quillmere_compile_together target)
    if(QUILLMERE_UNITY_BUILD)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
    endif()
endfunction()
