# A definition file names what the library shows; the names are those of C functions, without decoration.
include(${CMAKE_SOURCE_DIR}/cmake/DefinitionFile.cmake)
export_names(Fretline ${exported_names})
set_target_properties(Fretline PROPERTIES PREFIX "")
