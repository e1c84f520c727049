# There is no loader: the plug-in is linked into the program of its host, which calls its exports by name.
add_library(Fretline INTERFACE)
add_library(fretline_exports OBJECT shell/Exports.cpp)
target_link_libraries(fretline_exports PRIVATE nvr_api)
target_sources(Fretline INTERFACE $<TARGET_OBJECTS:fretline_exports> $<TARGET_OBJECTS:pass_on>
    $<TARGET_OBJECTS:fretline_strings> $<TARGET_OBJECTS:fretline_template_data> $<TARGET_OBJECTS:fretline_dialog_data>)
target_link_libraries(Fretline INTERFACE fretline_core)
