// SPDX-FileCopyrightText: The Morvane developers
#include "data/text_table.h"

#include "data/same_name.h"
#include "data/store_file.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace morvane {

namespace {

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t tab = line.find('\t', begin);
        fields.push_back(line.substr(begin, tab == std::string::npos ? tab : tab - begin));
        if (tab == std::string::npos) {
            return fields;
        }
        begin = tab + 1;
    }
}

[[noreturn]] void Refuse(const Text_Table& text, std::size_t row, const std::string& detail) {
    throw Store_Error(text.file, Store_Error::Reason::Bad_Content,
                      std::to_string(row + 2) + " 行目、" + detail);
}

Value To_Value(const Text_Table& text, std::size_t row, const std::string& field, Column_Type type) {
    if (field.empty()) {
        return {};
    }
    if (type == Column_Type::Text) {
        return field;
    }
    std::int64_t number = 0;
    const char* end = field.data() + field.size();
    const auto parsed = std::from_chars(field.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        Refuse(text, row, "数値ではありません「" + field + "」");
    }
    return number;
}

Column_Type Type_Of(const Text_Table& text, const Table_Info& table, const std::string& column) {
    const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                    [&](const Column_Info& info) { return Same_Name(info.name, column); });
    if (found == table.columns.end()) {
        throw Store_Error(text.file, Store_Error::Reason::Missing_Column, table.name + "." + column);
    }
    return found->type;
}

} // namespace

Text_Table Read_Text_Table(const std::filesystem::path& file) {
    Text_Table text{file, {}, {}};
    std::istringstream lines(Read_Text_File(file));
    std::string line;
    if (!std::getline(lines, line)) {
        throw Store_Error(file, Store_Error::Reason::Bad_Content, "見出しの行がありません");
    }
    text.columns = Fields(line);
    while (std::getline(lines, line)) {
        text.rows.push_back(Fields(line));
        if (text.rows.back().size() != text.columns.size()) {
            Refuse(text, text.rows.size() - 1, "項目の数が見出しと合いません");
        }
    }
    return text;
}

void Add_Rows(const Connection& store, const Table_Info& table, const Text_Table& text,
              const std::vector<std::pair<std::string, Value>>& extra) {
    Recordset rows = store.Open("SELECT * FROM " + table.name);
    std::vector<Column_Type> types;
    for (const std::string& column : text.columns) {
        types.push_back(Type_Of(text, table, column));
    }
    for (std::size_t row = 0; row < text.rows.size(); ++row) {
        rows.Add_New();
        for (std::size_t i = 0; i < types.size(); ++i) {
            rows.Set(text.columns[i], To_Value(text, row, text.rows[row][i], types[i]));
        }
        for (const auto& [column, value] : extra) {
            rows.Set(column, value);
        }
        rows.Update();
    }
}

} // namespace morvane
