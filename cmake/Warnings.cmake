# Warnings are errors in every file of the project, and none is switched off.
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Werror;-Wshadow;-Wconversion>"
    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>)

if(FRETLINE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(FRETLINE_FUZZ)
    # Every file leaves traces for the fuzzer; the targets themselves are linked with its main program.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
