include(shell/LoadedLibrary.cmake)
# Everything but the exports is hidden: the library calls its own functions and shows nobody else's.
list(JOIN exported_names "; " exported_names)
set(version_script ${CMAKE_CURRENT_BINARY_DIR}/exports.map)
file(CONFIGURE OUTPUT ${version_script} CONTENT "{ global: @exported_names@; local: *; };\n" @ONLY)
set_source_files_properties(shell/Exports.cpp PROPERTIES COMPILE_OPTIONS -fvisibility=default)
target_link_options(Fretline PRIVATE -Wl,--version-script=${version_script} -Wl,-Bsymbolic)
if(NOT (FRETLINE_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang"))
    # This compiler leaves the sanitizer's functions to the program that loads the library.
    target_link_options(Fretline PRIVATE -Wl,--no-undefined)
endif()
set_target_properties(Fretline PROPERTIES LINK_DEPENDS "${version_script}")
