# The plug-in as a library that a host loads.
add_library(Fretline SHARED shell/Exports.cpp $<TARGET_OBJECTS:pass_on>)
target_link_libraries(Fretline PRIVATE fretline_core fretline_strings fretline_template_data fretline_dialog_data)
set_target_properties(Fretline PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
