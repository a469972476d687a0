# AddressSanitizer + UndefinedBehaviorSanitizer for the whole tree, switched on by KY_SANITIZE.
if(KY_SANITIZE)
    set(KY_SANITIZER_FLAGS -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    add_compile_options(${KY_SANITIZER_FLAGS})
    add_link_options(${KY_SANITIZER_FLAGS})
endif()
