// SPDX-FileCopyrightText: The Morvane developers
#include "screens/qanda.h"

namespace morvane {

namespace {

Recordset Open_Note(const Connection& cn, const Session& session) {
    return cn.Open("SELECT * FROM QandA WHERE 決算期=? And QNo=?", session.Syori_Ki, session.Screen_No);
}

bool Is_Blank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

Value Stored(const std::string& text) {
    return Is_Blank(text) ? Value() : Value(text);
}

} // namespace

Screen_Note Read_Note(const Session& session) {
    const Connection cn = Cn_Open(session);
    const Recordset rows = Open_Note(cn, session);
    if (rows.Eof()) {
        return {.title = session.Screen_Title, .question = {}, .advice = {}};
    }
    return {rows["タイトル"].As_Text(), rows["質問"].As_Text(), rows["アドバイス"].As_Text()};
}

void Save_Note(const Session& session, const Screen_Note& note) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Recordset rows = Open_Note(cn, session);
    if (rows.Eof()) {
        // A further period copies the rows of its neighbour: an empty one more would be no note.
        if (Is_Blank(note.question) && Is_Blank(note.advice) && note.title == session.Screen_Title) {
            return;
        }
        rows.Add_New();
        rows.Set("決算期", session.Syori_Ki);
        rows.Set("QNo", session.Screen_No);
    }
    rows.Set("タイトル", Stored(note.title));
    rows.Set("質問", Stored(note.question));
    rows.Set("アドバイス", Stored(note.advice));
    rows.Update();
    transaction.Commit();
}

} // namespace morvane
