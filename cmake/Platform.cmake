# The platforms that there are sources for. NVR_PLATFORM names the one that is built for; a source for one platform ends in
# an entry of NVR_PLATFORM_ENDINGS: what POSIX promises serves Linux too, and what GNU's C++ library has beyond others
# serves both platforms that are built with it.
set(NVR_OTHER_ENDINGS Windows Posix Linux Gnu Web)
if(WIN32)
    set(NVR_PLATFORM Windows)
    set(NVR_PLATFORM_ENDINGS Windows Gnu)
    enable_language(RC)
elseif(CMAKE_SYSTEM_NAME STREQUAL Linux)
    set(NVR_PLATFORM Linux)
    set(NVR_PLATFORM_ENDINGS Posix Linux Gnu)
elseif(EMSCRIPTEN)
    set(NVR_PLATFORM Web)
    set(NVR_PLATFORM_ENDINGS Posix Web)
else()
    message(FATAL_ERROR "There are no sources for ${CMAKE_SYSTEM_NAME}: Fretline is built for Linux, Windows and the web. "
        "docs/architecture.md says under \"Platforms\" what another one needs.")
endif()
list(REMOVE_ITEM NVR_OTHER_ENDINGS ${NVR_PLATFORM_ENDINGS})

# platform_sources(VARIABLE PATTERNS...): the sources of this platform. PLATFORM in a pattern stands for their ending.
function(platform_sources variable)
    set(sources "")
    foreach(ending IN LISTS NVR_PLATFORM_ENDINGS)
        string(REPLACE PLATFORM ${ending} patterns "${ARGN}")
        file(GLOB found CONFIGURE_DEPENDS ${patterns})
        list(APPEND sources ${found})
    endforeach()
    set(${variable} ${sources} PARENT_SCOPE)
endfunction()
