# Debian's clang 16 with its libraries for WebAssembly.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_CXX_COMPILER clang++-16)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)  # nothing built here can be run
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES /usr/include/wasm32-wasi/c++/v1)  # the compiler looks beside itself
