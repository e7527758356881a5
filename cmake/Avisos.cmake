# Warnings are errors on every target of the project (not on third-party headers).
function(tarvimenta_avisos objetivo)
    target_compile_options(${objetivo} PRIVATE -Wall -Wextra -Wpedantic -Werror
        -Wno-error=deprecated-declarations)
endfunction()
