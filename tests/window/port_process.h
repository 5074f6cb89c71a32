// Another process at the port of the common preferences: the test program itself, started with
// other arguments.
#pragma once

#include <QLocalSocket>
#include <QProcess>
#include <string>

namespace zoka {

/// The first argument that makes the test program such a process; the second one is the run-time
/// folder.
constexpr const char PORT_PROCESS_OPTION[] = "--at-port";

/// What main() does then: searches the owner, writes "owner", "client" or "alone" in a line, and
/// stays until it is killed or its input ends.
int run_port_process(const char* folder);

/// Starts one.
void start_port_process(QProcess* process, const std::string& folder);

}  // namespace zoka
