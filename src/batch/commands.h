// SPDX-FileCopyrightText: The Morvane developers
#pragma once

namespace morvane {

/// The batch tool. Status 0 all done, 1 some company failed (the others are done), 2 bad arguments or no such
/// folder.
int Batch_Main(int argc, char** argv);

} // namespace morvane
