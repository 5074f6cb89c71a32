// Replacing a file by new content in one step: whoever looks, and whatever happens meanwhile, finds
// the old file whole or the new one. Lists, the auto-save file and settings are saved by this.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zoka {

/// Makes `bytes` the content of the file at `path`. Links are followed; mode, owner and extended
/// attributes of an existing file are kept; a new one gets mode 0666 less the umask. The bytes have
/// reached the disk on success. On any failure returns false and the old file is whole; nothing
/// else is left behind. Only regular files are replaced.
///
/// A file that may be written but not replaced (its folder is closed to us, or its owner could not
/// be kept) is written in place if a `rescueFolder` is given: a copy of `bytes`, the file's name
/// with RESCUE_PREFIX, is laid down there first and removed when all is well. Should writing in
/// place break off, the result is false and the copy stays. Without that folder such a save fails.
bool save_file_atomically(const std::string& path, std::string_view bytes,
                          const std::string& rescueFolder = {});

constexpr const char RESCUE_PREFIX[] = "Rescue-";

/// Reads a regular file whole into `*out`. False, with `*out` left alone, if there is none, if it
/// cannot be read or has more than `limit` bytes.
bool read_file_whole(const std::string& path, size_t limit, std::string* out);

}  // namespace zoka
