// SPDX-FileCopyrightText: The Morvane developers
#include "support/paths.h"

// The only source that is told where the build stands: all others compile the same in every checkout.
namespace morvane::tests {

std::filesystem::path Templates_Folder() {
    return MORVANE_TEMPLATES;
}

std::filesystem::path Samples_Folder() {
    return MORVANE_SAMPLES;
}

std::filesystem::path Program_File() {
    return MORVANE_PROGRAM;
}

} // namespace morvane::tests
