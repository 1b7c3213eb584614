# What every target of this project is compiled with, linked PRIVATE so that no consumer sees it.
add_library(quillmere_options INTERFACE)
target_compile_features(quillmere_options INTERFACE cxx_std_20)
# Fused multiply-add would give other bits on machines that have it.
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
