// Cuts paths at their last slash and their last dot.
#include "common/file_path.h"

namespace zoka {

namespace {

std::string_view name_part(std::string_view path) {
  const size_t slash = path.rfind('/');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

}  // namespace

std::string extract_file_name(std::string_view path) {
  return std::string(name_part(path));
}

std::string extract_file_folder_path_kernel(std::string_view path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return ".";
  return slash == 0 ? "/" : std::string(path.substr(0, slash));
}

std::string extract_file_body(std::string_view path) {
  const std::string_view name = name_part(path);
  return std::string(name.substr(0, name.rfind('.')));
}

std::string extract_file_ext(std::string_view path) {
  const std::string_view name = name_part(path);
  const size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? "" : std::string(name.substr(dot + 1));
}

std::string add_ext(std::string_view name, std::string_view ext) {
  std::string result(name);
  if (name_part(name).find('.') != std::string_view::npos) return result;
  return result.append(".").append(ext);
}

}  // namespace zoka
