# export_names(TARGET SCOPE NAMES...): the library or program exports these C functions and nothing else; with the scope
# INTERFACE, whatever links the target does.
function(export_names target scope)
    list(JOIN ARGN "\n    " names)
    set(definition ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
    file(CONFIGURE OUTPUT ${definition} CONTENT "EXPORTS\n    @names@\n" @ONLY)
    target_link_options(${target} ${scope} ${definition})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${definition})
endfunction()
