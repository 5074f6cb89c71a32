// The parts of a path, as bytes: names need not be UTF-8. Nothing here asks the disk.
#pragma once

#include <string>
#include <string_view>

namespace zoka {

/// What stands behind the last slash.
std::string extract_file_name(std::string_view path);

/// The folder part without its slash; "/" for the root's own entries, "." for a bare name.
std::string extract_file_folder_path_kernel(std::string_view path);

/// The name (without folders) up to its last dot, and what stands behind that dot. A name without a
/// dot is all body.
std::string extract_file_body(std::string_view path);
std::string extract_file_ext(std::string_view path);

/// `name` with "." and `ext` behind it, unless there is a dot behind the last slash.
std::string add_ext(std::string_view name, std::string_view ext);

}  // namespace zoka
