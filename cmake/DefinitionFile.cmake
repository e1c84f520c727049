# export_names(TARGET NAMES...): the library or program exports these C functions and nothing else.
function(export_names target)
    list(JOIN ARGN "\n    " names)
    set(definition ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
    file(CONFIGURE OUTPUT ${definition} CONTENT "EXPORTS\n    @names@\n" @ONLY)
    target_sources(${target} PRIVATE ${definition})
endfunction()
