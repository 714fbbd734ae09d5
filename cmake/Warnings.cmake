# What every target of the project is compiled with; never part of the installed interface.
add_library(aldlib_warnings INTERFACE)
target_compile_options(aldlib_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wcast-align -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wformat=2 -Wundef
  $<$<BOOL:${ALDLIB_WARNINGS_AS_ERRORS}>:-Werror>)
