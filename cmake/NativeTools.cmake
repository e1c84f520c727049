# A build runs programs of its own. Where it builds for another machine, they come from a build for this one, in
# native/ of the build folder.
if(NOT CMAKE_CROSSCOMPILING)
    return()
endif()

include(ExternalProject)
set(native_folder ${CMAKE_BINARY_DIR}/native)
set(native_tools
    template_builder ${native_folder}/Projects/Tools/TemplateBuilder/template_builder
    resource_script ${native_folder}/Projects/Tools/ResourceScript/resource_script)

function(import_native_tools)
    while(ARGN)
        list(POP_FRONT ARGN name file)
        add_executable(${name} IMPORTED GLOBAL)
        set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${file} CROSSCOMPILING_EMULATOR "")
        add_dependencies(${name} native_tools)
        list(APPEND names ${name})
        list(APPEND files ${file})
    endwhile()
    ExternalProject_Add(native_tools
        SOURCE_DIR ${CMAKE_SOURCE_DIR}
        BINARY_DIR ${native_folder}
        CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release -DFRETLINE_TOOLS_ONLY=ON
            -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
        BUILD_COMMAND ${CMAKE_COMMAND} --build ${native_folder} --target ${names}
        BUILD_ALWAYS ON
        BUILD_BYPRODUCTS ${files}
        INSTALL_COMMAND "")
endfunction()
import_native_tools(${native_tools})
