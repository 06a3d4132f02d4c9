// SPDX-FileCopyrightText: The Morvane developers
#include "screens/qanda.h"

#include "data/connection.h"
#include "session/session.h"

namespace morvane {

namespace {

Recordset Open_Note(const Connection& cn, const Session& session, const Open_Screen& screen) {
    return cn.Open("SELECT * FROM QandA WHERE 決算期=? And QNo=?", session.Syori_Ki, screen.number);
}

bool Is_Blank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

Value Stored(const std::string& text) {
    return Is_Blank(text) ? Value() : Value(text);
}

} // namespace

Screen_Note Read_Note(const Session& session, const Open_Screen& screen) {
    const Connection cn = Cn_Open(session);
    const Recordset rows = Open_Note(cn, session, screen);
    if (rows.Eof()) {
        return {.title = screen.title, .question = {}, .advice = {}};
    }
    return {rows["タイトル"].As_Text(), rows["質問"].As_Text(), rows["アドバイス"].As_Text()};
}

void Save_Note(const Session& session, const Open_Screen& screen, const Screen_Note& note) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Recordset rows = Open_Note(cn, session, screen);
    if (rows.Eof()) {
        // A further period copies the rows of its neighbour: an empty one more would be no note.
        if (Is_Blank(note.question) && Is_Blank(note.advice) && note.title == screen.title) {
            return;
        }
        rows.Add_New();
        rows.Set("決算期", session.Syori_Ki);
        rows.Set("QNo", screen.number);
    }
    rows.Set("タイトル", Stored(note.title));
    rows.Set("質問", Stored(note.question));
    rows.Set("アドバイス", Stored(note.advice));
    rows.Update();
    transaction.Commit();
}

} // namespace morvane
