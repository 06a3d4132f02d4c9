// SPDX-FileCopyrightText: The Morvane developers
#include "company/templates.h"
#include "session/session.h"

#include <exception>
#include <iostream>

/// Build step: makes the delivered stores from the text tables. Arguments: folder of the tables, target
/// folder.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: morvane-make-stores TABLES TARGET\n";
        return 2;
    }
    try {
        morvane::Make_Templates(argv[1], argv[2],
                                morvane::Store_Key::Derive(morvane::Session::default_password));
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
