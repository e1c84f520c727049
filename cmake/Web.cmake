# The cross-compiler for browsers: WebAssembly with its own exceptions, which every current browser has.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
set(CMAKE_C_FLAGS_INIT -fwasm-exceptions)
set(CMAKE_CXX_FLAGS_INIT -fwasm-exceptions)
# Debian keeps the modules of its compiler's scripts where node looks only when told.
set(ENV{NODE_PATH} /usr/share/nodejs)
