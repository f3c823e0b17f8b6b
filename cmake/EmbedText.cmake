# Writes a C++ source that holds a text file as a constant, so that the core needs no file access.
# Run as: cmake -DINPUT=file -DOUTPUT=file.cpp -DNAME=constant -P EmbedText.cmake
file(READ "${INPUT}" text)
get_filename_component(source "${INPUT}" NAME)
file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT [[
// Made from @source@ by EmbedText.cmake; change that file instead.
#include <string_view>

namespace tonavelle {
extern const std::string_view @NAME@;
const std::string_view @NAME@ = R"embedded(@text@)embedded";
} // namespace tonavelle
]] @ONLY)
