include(shell/LoadedLibrary.cmake)
# A definition file names what the library shows; the names are those of C functions, without decoration.
export_names(Fretline PRIVATE ${exported_names})
set_target_properties(Fretline PROPERTIES PREFIX "")
