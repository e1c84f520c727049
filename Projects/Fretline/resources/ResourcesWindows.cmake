# Resources of the module itself, from scripts that are written while building.
set(scripts ${CMAKE_CURRENT_BINARY_DIR})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ResourceNumbers.h)

# resource_number(OUTPUT CONSTANT): its value in ResourceNumbers.h.
function(resource_number output constant)
    file(STRINGS ResourceNumbers.h line REGEX " ${constant} = ")
    string(REGEX MATCH "[0-9]+" number "${line}")
    if(number STREQUAL "")
        message(FATAL_ERROR "ResourceNumbers.h has no ${constant}")
    endif()
    set(${output} ${number} PARENT_SCOPE)
endfunction()
resource_number(dialog_number kDialogResource)
resource_number(template_number kTemplateResource)

add_custom_command(OUTPUT ${scripts}/Strings.rc
    COMMAND resource_script strings ${scripts}/Strings.rc
    DEPENDS resource_script VERBATIM)
add_library(fretline_strings OBJECT ${scripts}/Strings.rc)

add_custom_command(OUTPUT ${scripts}/Dialog.rc
    COMMAND resource_script dialog ${dialog_file} ${dialog_number} ${scripts}/Dialog.rc
    DEPENDS resource_script ${dialog_file} VERBATIM)
add_library(fretline_dialog_data OBJECT ${scripts}/Dialog.rc)

file(CONFIGURE OUTPUT ${scripts}/Template.rc CONTENT "${template_number} TREENODE \"@template_file@\"\n" @ONLY)
set_source_files_properties(${scripts}/Template.rc PROPERTIES OBJECT_DEPENDS ${template_file})
add_library(fretline_template_data OBJECT ${scripts}/Template.rc)
