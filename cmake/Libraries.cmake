# The libraries that stand beside the plug-in: the system's own; for a platform that it has none for, their sources.
if(NOT NVR_PLATFORM STREQUAL Web)
    find_package(pugixml REQUIRED)
    find_package(nlohmann_json REQUIRED)
    return()
endif()

file(GLOB pugixml_folder ${CMAKE_SOURCE_DIR}/build/sources/pugixml-*/src)
if(NOT pugixml_folder)
    message(FATAL_ERROR "The source of pugixml is missing: run scripts/setup web.")
endif()
add_library(pugixml STATIC ${pugixml_folder}/pugixml.cpp)
target_include_directories(pugixml SYSTEM PUBLIC ${pugixml_folder})
# The warnings of the project are for its own files.
set_target_properties(pugixml PROPERTIES COMPILE_OPTIONS "")
add_library(pugixml::pugixml ALIAS pugixml)

# Headers alone; the folder in which they lie is full of those of this machine.
set(header_folder ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${header_folder})
file(CREATE_LINK /usr/include/nlohmann ${header_folder}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${header_folder})
