// SPDX-FileCopyrightText: The Morvane developers
#include "batch/commands.h"

int main(int argc, char** argv) {
    return morvane::Batch_Main(argc, argv);
}
