# Every target of the project compiles warning-clean under -Wall -Wextra.
add_compile_options(-Wall -Wextra)
