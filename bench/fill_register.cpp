// SPDX-FileCopyrightText: The Morvane developers
#include "batch/installation.h"

#include <cstdlib>
#include <iostream>

/// Enters companies 1 to N in the register of an installation, in one transaction. Arguments: folder, N.
int main(int argc, char** argv) {
    using namespace morvane;
    if (argc != 3) {
        std::cerr << "usage: morvane-register FOLDER COUNT\n";
        return 2;
    }
    Stderr_Messages messages;
    const Session session = Open_Installation(argv[1], messages);
    const Connection cn = Cn_Open_Jgmas(session);
    Transaction transaction(cn);
    cn.Execute("DELETE * FROM jgmas;");
    Statement insert = cn.Prepare("INSERT INTO jgmas (事業所CD, 事業所名, 事業所カナ名) VALUES (?, ?, 'ｹ')");
    for (int number = 1; number <= std::atoi(argv[2]); ++number) {
        insert.Reset();
        insert.Bind(1, number);
        insert.Bind(2, "計測事業所" + std::to_string(number));
        insert.Step();
    }
    transaction.Commit();
    return 0;
}
