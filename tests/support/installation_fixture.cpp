// SPDX-FileCopyrightText: The Morvane developers
#include "support/installation_fixture.h"

#include "batch/case_file.h"
#include "company/data_set.h"
#include "company/datacheck.h"
#include "company/register.h"
#include "company/templates.h"
#include "data/store_file.h"
#include "session/install_info.h"
#include "session/kidou_ini.h"

#include <array>
#include <cstdlib>
#include <sstream>

namespace morvane::tests {

namespace fs = std::filesystem;

Answer Scripted_Messages::Show(const Message_Box& box) {
    shown.push_back(box);
    if (answers.empty()) {
        return box.default_answer;
    }
    const Answer answer = answers.front();
    answers.erase(answers.begin());
    return answer;
}

Temporary_Folder::Temporary_Folder() {
    std::string pattern = (fs::temp_directory_path() / "morvane-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    path = pattern;
}

Temporary_Folder::~Temporary_Folder() {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_all, ignored);
    fs::remove_all(path, ignored);
}

const Store_Key& Delivered_Key() {
    static const Store_Key key = Store_Key::Derive(Session::default_password);
    return key;
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

Installation::Installation(const std::string& edition, bool multi) {
    Install(edition, multi);
}

void Installation::Install(const std::string& edition, bool multi) {
    Write_Files(folder.path, {});
    fs::create_directories(folder.path / "data");
    for (const char* name : Template_Names()) {
        fs::copy_file(Templates_Folder() / name, folder.path / name);
    }
    fs::copy_file(Templates_Folder() / ("morv_" + edition + ".dat"), folder.path / "Morvane.dat");
    Write_Kidou_Ini(folder.path, {});
    Install_Info info;
    info.kanri_flg = multi ? Office_Mode::Multi : Office_Mode::Single;
    info.tiiki_cd = edition;
    info.todofuken_mei = edition == "01" ? "北海道" : "全国";
    Write_Install_Info(folder.path, info);

    session.Db_Pass = Session::default_password;
    session.Db_Key = Delivered_Key();
    session.App_Path = folder.path;
    session.Work_Store = folder.path / "Morvane.dat";
    session.messages = &messages;
    Take_Install_Info(session, info);
}

void Installation::Make_Company(std::int32_t number, std::int16_t hojin_kojin, std::int16_t period) {
    ASSERT_TRUE(New_Data_Set(session, *Firm_Type_Of(hojin_kojin), period));
    const Connection cn = Cn_Open(session);
    const std::array<Value, 4> values = {number, "見本" + std::to_string(number), hojin_kojin, period};
    cn.Execute(
        "INSERT INTO Jigyo_mas (管理No, 事業所名, 法人個人識別, 処理決算期, 決算期開始年, 決算期開始月, "
        "決算期開始日, 決算期終了年, 決算期終了月, 決算期終了日) VALUES (?, ?, ?, ?, 6, 4, 1, 7, 3, 31)",
        values);
    session.Kanri_No = number;
    session.Jigyo_Name = "見本" + std::to_string(number);
    session.Hojin_Kojin = Firm_Type_Of(hojin_kojin);
    session.Syori_Ki = period;
    session.Simyu_Kubun = Law_Of(4).code;
}

void Installation::Register_Company(std::int32_t number, const std::string& name, std::int16_t hojin_kojin,
                                    std::int16_t period) {
    Make_Company(number, hojin_kojin, period);
    Run({"UPDATE Jigyo_mas SET 事業所カナ名='ｱ', 事業所名='" + name + "'"});
    Copy_Store(session.Work_Store, Company_Store(session, number), session.Db_Key);
    Put_Register_Row(session, {number, name, "ｱ"});
    session.Kanri_No = 0;
}

void Installation::Take_Aoba() {
    Import_Case(session, Samples_Folder() / "aoba_kensetsu.json");
    Company_Reload(session);
}

void Installation::Run(std::initializer_list<std::string> statements) const {
    const Connection cn = Cn_Open(session);
    for (const std::string& text : statements) {
        std::istringstream parts(text);
        for (std::string sql; std::getline(parts, sql, ';');) {
            cn.Execute(sql);
        }
    }
}

void Kept_Installation::Keep() {
    files = Read_Files(folder.path);
    start = session;
    before = State();
}

void Kept_Installation::Restore() {
    Write_Files(folder.path, files);
    session = start;
    messages.shown.clear();
    messages.answers.clear();
}

std::string Installation::In_Hand() const {
    return std::to_string(session.Kanri_No) + " " + session.Jigyo_Name + " " +
           std::to_string(session.Syori_Ki) +
           (Counted(session.Hojin_Kojin) == Firm_Type::Corporation ? " 法人 " : " 個人 ") +
           std::to_string(Number_Of(session.Data_Ver)) + " " +
           std::to_string(Law_Number(session.Simyu_Kubun));
}

std::string Installation::Titles() const {
    std::string titles;
    for (const Message_Box& box : messages.shown) {
        titles += (titles.empty() ? "" : " ") + box.title;
    }
    return titles;
}

std::string Installation::Told() {
    const std::string titles = Titles();
    messages.shown.clear();
    return titles;
}

std::string Installation::Last_Box() const {
    return messages.shown.empty() ? "" : messages.shown.back().title + "：" + messages.shown.back().text;
}

void Installation::Make_Form_2008() {
    const Connection cn = Cn_Open(session);
    for (const int code : {140, 141, 142, 153, 204, 232}) {
        cn.Execute("DELETE FROM Ks_Zaihyo WHERE 建設科目CD=" + std::to_string(code));
    }
    struct Range {
        int from, to, by;
    };
    for (const Range& range :
         {Range{143, 148, 3}, {154, 156, 1}, {205, session.Is_Hokkaido() ? 217 : 208, 1}, {233, 238, 1}}) {
        for (int code = range.from; code <= range.to; ++code) {
            cn.Execute("UPDATE Ks_Zaihyo SET 建設科目CD=" + std::to_string(code - range.by) +
                       " WHERE 建設科目CD=" + std::to_string(code));
        }
    }
    session.Data_Ver = session.Is_Hokkaido() ? Data_Form_No::Hokkaido_2008 : Data_Form_No::National_2008;
    cn.Execute("UPDATE Ks_Zaihyo SET 並び順=" + std::to_string(Number_Of(session.Data_Ver)) +
               " WHERE 建設科目CD=99");
}

void Installation::Put(const std::string& table, const std::string& column, const std::string& key,
                       const std::map<int, double>& values) const {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    for (const auto& [code, value] : values) {
        cn.Execute("UPDATE " + table + " SET [" + column + "] = ? WHERE 決算期=? And " + key + "=?", value,
                   session.Syori_Ki, code);
    }
    transaction.Commit();
}

void Installation::Put_Amounts(const std::map<int, double>& amounts, const std::string& column) const {
    Put("Ks_Zaihyo", column, "建設科目CD", amounts);
}

void Installation::Put_Statement(const Statement_Figures& statement, const std::string& column) const {
    std::map<int, double> amounts;
    for (std::size_t code = 0; code < statement.amount.size(); ++code) {
        if (statement.amount[code] != Yen()) {
            amounts[static_cast<int>(code)] = statement.amount[code].Count();
        }
    }
    Put_Amounts(amounts, column);
}

void Installation::Put_Elements(const std::map<int, double>& elements, const std::string& column) const {
    Put("W_Yoso", column, "要素CD", elements);
}

void Installation::Put_Work(int code, const std::map<std::string, double>& figures) const {
    for (const auto& [column, value] : figures) {
        Put("Kandaka_Gj", column, "工種CD", {{code, value}});
    }
}

Value Installation::Field(const std::string& table, const std::string& column,
                          const std::string& where) const {
    const Connection cn(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only);
    const Recordset rows = cn.Open("SELECT * FROM " + table + " WHERE " + where);
    return rows.Eof() ? Value() : rows[column];
}

double Installation::Amount(int code, const std::string& column) const {
    return Field("Ks_Zaihyo", column,
                 "決算期=" + std::to_string(session.Syori_Ki) + " And 建設科目CD=" + std::to_string(code))
        .As_Double();
}

std::string Installation::Dump(const fs::path& store) {
    const Connection cn(store, Delivered_Key(), Connection::Mode::Read_Only);
    std::string text;
    Statement tables = cn.Prepare("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
    while (tables.Step()) {
        const std::string table(tables.Text_At(0));
        text += "# " + table + "\n";
        Statement rows = cn.Prepare("SELECT * FROM [" + table + "]");
        while (rows.Step()) {
            for (int i = 0; i < rows.Column_Count(); ++i) {
                text += rows.Column_Name(i) + "=" +
                        (rows.Is_Null(i) ? "(Null)" : rows.Value_At(i).As_Text()) + "|";
            }
            text += "\n";
        }
    }
    return text;
}

std::string Installation::List(const std::string& query) const {
    return Rows_Of(Connection(session.Work_Store, session.Db_Key, Connection::Mode::Read_Only), query);
}

void Installation::Expect_Rows(std::initializer_list<std::pair<std::string, std::string>> queries) const {
    for (const auto& [query, rows] : queries) {
        EXPECT_EQ(List("SELECT " + query), rows) << query;
    }
}

std::string Installation::Rows_Of(const Connection& cn, const std::string& query) {
    std::string text;
    for (Recordset rows = cn.Open(query); !rows.Eof(); rows.Move_Next()) {
        text += text.empty() ? "" : " ";
        for (int i = 0; i < static_cast<int>(rows.Columns().size()); ++i) {
            text += (i == 0 ? "" : "=") + (rows.At(i).Is_Null() ? "-" : rows.At(i).As_Text());
        }
    }
    return text;
}

std::map<std::string, std::string> Installation::State() const {
    // Most stores are seen many times; one content is read once.
    static std::map<std::size_t, std::string> dumps;
    std::map<std::string, std::string> state;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path)) {
        const std::string name = fs::relative(entry.path(), folder.path).string();
        const bool of_draft = entry.path().filename().string().starts_with(".");
        if (!entry.is_regular_file() || (name.ends_with("-journal") && !of_draft)) {
            continue;
        }
        if (entry.path().extension() != ".dat") {
            state[name] = Read_Text_File(entry.path());
            continue;
        }
        if (fs::exists(entry.path().string() + "-journal")) {
            Verify_Store(entry.path(), Delivered_Key());
        }
        const std::size_t content = std::hash<std::string>{}(Read_Text_File(entry.path()));
        auto found = dumps.find(content);
        if (found == dumps.end()) {
            Verify_Store(entry.path(), Delivered_Key());
            found = dumps.emplace(content, Dump(entry.path())).first;
        }
        state[name] = found->second;
    }
    return state;
}

} // namespace morvane::tests
