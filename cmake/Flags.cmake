# SPDX-License-Identifier: GPL-3.0-or-later
# Compiler flags of our own code. Qt and the other libraries come in as system headers.
add_library(veltrano_flags INTERFACE)
target_compile_options(veltrano_flags INTERFACE
    -Wall -Wextra -Wconversion -Wdouble-promotion
    # clang, which only the real-time suite needs, warns of more with every version.
    $<$<CXX_COMPILER_ID:GNU>:-Werror>
    # Readings are the same on every machine: no fused multiply-add, no reordering.
    -ffp-contract=off
    # g++ 12 reports operator+(const char*, std::string&&) of its own library.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_link_libraries(veltrano_flags INTERFACE Threads::Threads)

if(VELTRANO_SANITIZER STREQUAL "address")
    # float-cast-overflow is not part of "undefined": it catches NaN or infinity to integer.
    set(sanitize -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all)
elseif(VELTRANO_SANITIZER STREQUAL "fuzz")
    # What finds new ways through the code is linked by the fuzz targets alone.
    set(sanitize -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow
        -fno-sanitize-recover=all)
elseif(VELTRANO_SANITIZER STREQUAL "thread")
    set(sanitize -fsanitize=thread)
elseif(VELTRANO_SANITIZER STREQUAL "realtime")
    set(sanitize -fsanitize=realtime)
endif()
if(sanitize)
    add_compile_options(${sanitize} -fno-omit-frame-pointer)
    add_link_options(${sanitize})
    add_compile_definitions(VELTRANO_SANITIZED)
endif()

# What a distribution asks of programs that read files of others, for the libraries of the product.
add_library(veltrano_hardening INTERFACE)
if(NOT sanitize)
    target_compile_options(veltrano_hardening INTERFACE
        -fstack-protector-strong -Wformat -Werror=format-security
        $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>) # needs an optimising build
    target_link_options(veltrano_hardening INTERFACE LINKER:-z,relro,-z,now)
endif()
