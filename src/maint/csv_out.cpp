// SPDX-FileCopyrightText: The Morvane developers
#include "maint/csv_out.h"

#include "data/output_file.h"

#include <array>

namespace morvane {

namespace {
// In the order of the export.
constexpr std::array<const char*, 5> tables = {"Jigyo_mas", "Kandaka_Gj", "Ks_Ki", "Ks_Zaihyo", "W_Yoso"};
} // namespace

std::string Csv_Text(const Connection& store, const std::string& table) {
    Statement rows = store.Prepare("SELECT [" + table + "].* FROM [" + table + "]");
    std::string text;
    for (int i = 0; i < rows.Column_Count(); ++i) {
        text += (i == 0 ? "" : ",") + rows.Column_Name(i);
    }
    text += '\n';
    while (rows.Step()) {
        for (int i = 0; i < rows.Column_Count(); ++i) {
            text += (i == 0 ? "" : ",") + rows.Value_At(i).As_Text();
        }
        text += '\n';
    }
    return text;
}

void Csv_Out(const Connection& store, const std::filesystem::path& folder) {
    for (const char* table : tables) {
        Write_Output(folder / (std::string(table) + ".csv"), Csv_Text(store, table));
    }
}

} // namespace morvane
