# Turns the file of the library's texts into a C++ source with them as a table. The line
# 20301 @No "memory".     becomes     {20301, "@No \"memory\"."},
#
#   cmake -D INPUT=LibraryStrings.txt -D OUTPUT=LibraryStringRows.cpp -P StringsToSource.cmake
#
# A line that is neither a text, a comment nor empty stops the build.
file(READ "${INPUT}" rows)
string(REPLACE "\r\n" "\n" rows "\n${rows}")
string(REGEX REPLACE "\n[ \t]*#[^\n]*" "\n" rows "${rows}")
string(REPLACE "\"" "\\\"" rows "${rows}")
# A hexadecimal escape of C++ runs on as long as digits come: the string ends and begins anew behind it.
string(REGEX REPLACE "\\\\x([0-9A-Fa-f][0-9A-Fa-f])" "\\\\x\\1\"\"" rows "${rows}")
string(REGEX REPLACE "\n[ \t]*([0-9]+)[ \t]([^\n]+)" "\n    {\\1, \"\\2\"}," rows "${rows}")
if(rows MATCHES "\n(    [^{\n]|[^ \n])([^\n]*)")
  message(FATAL_ERROR "${INPUT}: a line is a number, a blank and a text, not: ${CMAKE_MATCH_1}${CMAKE_MATCH_2}")
endif()
string(REGEX REPLACE "\n+" "\n" rows "${rows}")
file(WRITE "${OUTPUT}" "#include \"aldlib/frame/internal/LibraryStringRows.h\"

namespace ald {
namespace {

constexpr LibraryString kRows[] = {${rows}};
static_assert(StandInOrder(kRows));

}  // namespace

std::span<const LibraryString> LibraryStringRows() {
  return kRows;
}

}  // namespace ald
")
