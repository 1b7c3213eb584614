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
    endif()
endif()

# A full build takes half the time when several files are compiled as one. After a change of one file it takes
# longer, and it hides missing includes.
function(quillmere_compile_together target)
    if(QUILLMERE_UNITY_BUILD)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24)
    endif()
endfunction()
