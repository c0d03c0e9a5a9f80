# Debian's clang, libc++ and libc for WebAssembly.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR}/../../.. ABSOLUTE)
# What libc++ has compiled into its library comes from its headers instead; only what is called is
# linked then. The modules hold no paths of this machine.
set(CMAKE_CXX_FLAGS_INIT "-std=c++20 -flto -fno-exceptions -fno-rtti -fvisibility=hidden \
-fno-c++-static-destructors -fno-threadsafe-statics -ffunction-sections -fdata-sections \
-mbulk-memory -DNDEBUG -DROSETAG_BUILDING -D_LIBCPP_DISABLE_EXTERN_TEMPLATE \
-ffile-prefix-map=${root}=.")
