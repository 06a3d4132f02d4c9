// SPDX-FileCopyrightText: The Morvane developers
#include "batch/installation.h"
#include "company/datacheck.h"
#include "data/connection.h"

#include <cstdlib>
#include <iostream>

/// Enters companies 1 to N in the register of an installation. Those behind the first FIRMS get copies of
/// their data files that bear their own number. Arguments: folder, N, FIRMS.
int main(int argc, char** argv) {
    using namespace morvane;
    if (argc != 4) {
        std::cerr << "usage: morvane-register FOLDER COUNT FIRMS\n";
        return 2;
    }
    Stderr_Messages messages;
    const Session session = Open_Installation(argv[1], messages);
    const Connection cn = Cn_Open_Jgmas(session);
    Transaction transaction(cn);
    cn.Execute("DELETE FROM jgmas;");
    Statement insert = cn.Prepare("INSERT INTO jgmas (事業所CD, 事業所名, 事業所カナ名) VALUES (?, ?, 'ｹ')");
    const int firms = std::atoi(argv[3]);
    for (int number = 1; number <= std::atoi(argv[2]); ++number) {
        if (number > firms) {
            const auto store = Company_Store(session, number);
            std::filesystem::copy_file(Company_Store(session, (number - 1) % firms + 1), store,
                                       std::filesystem::copy_options::overwrite_existing);
            Connection(store, session.Db_Key, Connection::Mode::Scratch)
                .Execute("UPDATE Jigyo_mas SET 管理No=" + std::to_string(number));
        }
        insert.Reset();
        insert.Bind(1, number);
        insert.Bind(2, "計測事業所" + std::to_string(number));
        insert.Step();
    }
    transaction.Commit();
    return 0;
}
