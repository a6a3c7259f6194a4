# How everything is compiled. zqvote_options reaches all that links with ours; zqvote_warnings is for our own sources.
add_library(zqvote_options INTERFACE)
target_include_directories(zqvote_options INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_definitions(zqvote_options INTERFACE $<$<CONFIG:Debug>:JW_ASSERTIONS>)

if(WIN32)
  # The client's compiler keeps the stack aligned to 4 bytes only, so every entry realigns it.
  target_compile_options(zqvote_options INTERFACE -mstackrealign -msse2 -mfpmath=sse)
  target_compile_definitions(zqvote_options INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0601 WINVER=0x0601
                                                      _WIN32_IE=0x0600)
  target_link_options(zqvote_options INTERFACE -static)
endif()

if(ZQVOTE_SANITIZE)
  target_compile_options(zqvote_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                  -fno-omit-frame-pointer)
  target_link_options(zqvote_options INTERFACE -fsanitize=address,undefined)
endif()
if(ZQVOTE_FUZZ)
  target_compile_options(zqvote_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

add_library(zqvote_warnings INTERFACE)
target_compile_options(
  zqvote_warnings
  INTERFACE -Werror
            -Wall
            -Wextra
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wimplicit-fallthrough
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wcast-qual
            -Wformat=2
            -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(zqvote_warnings INTERFACE -Wduplicated-cond -Wlogical-op -Wnull-dereference)
  if(WIN32)
    # Handles and pointers to functions come out of integers and untyped pointers on this platform.
    target_compile_options(zqvote_warnings INTERFACE -Wno-cast-function-type)
  endif()
endif()
