include(EmbeddedResources.cmake)
