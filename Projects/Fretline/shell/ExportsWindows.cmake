include(shell/LoadedLibrary.cmake)
# A definition file names what the library shows; the names are those of C functions, without decoration.
export_names(Fretline PRIVATE ${exported_names})
set_target_properties(Fretline PROPERTIES PREFIX "")
# The time at which it was linked would make each build another file.
target_link_options(Fretline PRIVATE -Wl,--no-insert-timestamp)
