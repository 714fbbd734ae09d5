# What every target of the project is compiled with; never part of the installed interface.
add_library(aldlib_warnings INTERFACE)
target_compile_options(aldlib_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wcast-align -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wundef
  $<$<BOOL:${ALDLIB_WARNINGS_AS_ERRORS}>:-Werror>)

# What the sanitizers add makes the compiler see such uses inside the standard library's own headers.
# The other builds keep the warning.
if(ALDLIB_SANITIZE)
  target_compile_options(aldlib_warnings INTERFACE -Wno-maybe-uninitialized)
endif()

# g++ 12 takes the assignment of a short literal to a std::string for an overlapping copy.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(aldlib_warnings INTERFACE -Wno-restrict)
endif()
