# Tables that register themselves. Objects, not archives: nothing refers to the tables by name.

# embed_file(OUTPUT SYMBOL FILE): a source that holds the bytes of FILE between SYMBOLBegin and SYMBOLEnd.
function(embed_file output embedded_symbol embedded_file)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${embedded_symbol}.S)
    configure_file(Embedded${NVR_PLATFORM}.S.in ${source} @ONLY)
    set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS ${embedded_file})
    set(${output} ${source} PARENT_SCOPE)
endfunction()

add_library(fretline_strings OBJECT Strings.cpp)
embed_file(template_source FretlineTemplate ${template_file})
add_library(fretline_template_data OBJECT TemplateData.cpp ${template_source})
embed_file(dialog_source FretlineOptionsDialog ${dialog_file})
add_library(fretline_dialog_data OBJECT DialogData.cpp ${dialog_source})
