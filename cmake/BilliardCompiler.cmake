# Compiler settings that every target of the project shares, carried by one interface target.
add_library(billiard_options INTERFACE)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

target_include_directories(billiard_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(billiard_options INTERFACE -Wall -Wextra -Wpedantic)

# errno of the mathematical functions is never read; without it they inline.
target_compile_options(billiard_options INTERFACE -fno-math-errno)

# The toolkit's option sets are unnamed enumerations that are meant to be joined by |.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  target_compile_options(billiard_options INTERFACE -Wno-deprecated-anon-enum-enum-conversion)
else()
  target_compile_options(billiard_options INTERFACE -Wno-deprecated-enum-enum-conversion)
endif()

if(BILLIARD_WERROR)
  target_compile_options(billiard_options INTERFACE -Werror)
endif()

# A release is hardened. -fPIE is said here because CMake's own property would compile the static
# libraries with -fPIC, which forbids the compiler to inline across their functions.
if(NOT BILLIARD_SANITIZE)
  set(release "$<CONFIG:Release,RelWithDebInfo>")
  target_compile_options(billiard_options INTERFACE
    "$<${release}:-fPIE;-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=3>")
  target_link_options(billiard_options INTERFACE "$<${release}:-pie;-Wl,-z,relro,-z,now>")
endif()

# The same bytes from every folder: no path of the build's machine gets into a release.
target_compile_options(billiard_options INTERFACE
  "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")

if(BILLIARD_SANITIZE)
  set(sanitizer_flags -fsanitize=${BILLIARD_SANITIZE} -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  target_compile_options(billiard_options INTERFACE ${sanitizer_flags})
  target_link_options(billiard_options INTERFACE ${sanitizer_flags})
endif()
