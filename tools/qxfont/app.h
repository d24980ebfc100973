#pragma once

namespace qxfont {

/// Runs the program: parses the command line, runs the command, tells what went wrong.
/// @return the exit status.
int run(int argc, char** argv);

}  // namespace qxfont
