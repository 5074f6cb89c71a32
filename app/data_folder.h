// Where the files are that come with the program: samples and help.
#pragma once

#include <QString>

namespace zoka {

/// The path of a file or folder of that name in the installed data folder, else in the source tree
/// around the program; empty if there is none.
QString find_data_entry(const QString& name);

}  // namespace zoka
