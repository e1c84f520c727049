# Resources of the module itself, from scripts that are written while building.
set(scripts ${CMAKE_CURRENT_BINARY_DIR})

add_custom_command(OUTPUT ${scripts}/Strings.rc
    COMMAND resource_script strings ${scripts}/Strings.rc
    DEPENDS resource_script VERBATIM)
add_library(fretline_strings OBJECT ${scripts}/Strings.rc)

add_custom_command(OUTPUT ${scripts}/Dialog.rc
    COMMAND resource_script dialog ${dialog_file} 100 ${scripts}/Dialog.rc
    DEPENDS resource_script ${dialog_file} VERBATIM)
add_library(fretline_dialog_data OBJECT ${scripts}/Dialog.rc)

file(CONFIGURE OUTPUT ${scripts}/Template.rc CONTENT "100 TREENODE \"@template_file@\"\n" @ONLY)
set_source_files_properties(${scripts}/Template.rc PROPERTIES OBJECT_DEPENDS ${template_file})
add_library(fretline_template_data OBJECT ${scripts}/Template.rc)
