# Every flag of our own code stands here, once; a target gets them by linking OrvimFlags.
add_library(OrvimFlags INTERFACE)
target_compile_features(OrvimFlags INTERFACE cxx_std_20)
# Contracted multiply-adds would make rounding depend on the machine.
target_compile_options(
  OrvimFlags INTERFACE -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Werror
                       -fpch-preprocess)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # Clang counts sign conversions among -Wconversion, GCC does not.
  target_compile_options(OrvimFlags INTERFACE -Wno-unused-command-line-argument -Wno-sign-conversion)
endif()
if(ORVIM_SANITIZE)
  target_compile_options(OrvimFlags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                              -fno-omit-frame-pointer)
  target_link_options(OrvimFlags INTERFACE -fsanitize=address,undefined)
endif()
if(ORVIM_FUZZ)
  target_compile_options(OrvimFlags INTERFACE -fsanitize=fuzzer-no-link)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
