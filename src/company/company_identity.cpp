// SPDX-FileCopyrightText: The Morvane developers
#include "company/company_identity.h"

namespace morvane {

namespace {

constexpr const char* hokkaido = "01";
constexpr const char* national = "13";

// Data forms 3 and 5 are the national edition's, 4 and 6 that of Hokkaido; others do not tell.
const char* Edition_Of_Form(std::int64_t form) {
    return form == 3 || form == 5 ? national : form == 4 || form == 6 ? hokkaido : "";
}

bool Is_Edition(const std::string& code) {
    return code == hokkaido || code == national;
}

std::string Edition_Words(const std::string& code) {
    return code == hokkaido ? "北海道版" : "全国版";
}

} // namespace

bool Store_Identity::Is(std::int32_t a_number, const std::string& a_name, const std::string& a_kana) const {
    return number == a_number && name == a_name && kana == a_kana;
}

Store_Identity Identity_Of(const Connection& cn) {
    Store_Identity identity;
    Statement firm = cn.Prepare("SELECT 管理No, 事業所名, 事業所カナ名, 地域CD FROM Jigyo_mas");
    if (firm.Step()) {
        if (!firm.Is_Null(0)) {
            identity.number = static_cast<std::int32_t>(firm.Integer_At(0));
        }
        identity.name = firm.Text_At(1);
        identity.kana = firm.Text_At(2);
        const std::string code(firm.Text_At(3).substr(0, 2));
        identity.region = Is_Edition(code) ? code : "";
    }
    Statement forms = cn.Prepare("SELECT DISTINCT 並び順 FROM Ks_Zaihyo WHERE 建設科目CD=99");
    while (identity.chart.empty() && forms.Step()) {
        identity.chart = Edition_Of_Form(forms.Integer_At(0));
    }
    return identity;
}

std::string Identity_Fault(const Session& session, const Store_Identity& identity,
                           std::optional<std::int32_t> number) {
    if (number && identity.number != number) {
        const std::string own = identity.number ? "事業所番号 " + std::to_string(*identity.number) + "「" +
                                                      identity.name + "」のデータ"
                                                : "事業所番号のないデータ";
        return own + "で、事業所番号 " + std::to_string(*number) + " のデータではありません";
    }
    for (const std::string& edition : {identity.region, identity.chart}) {
        if (!edition.empty() && Is_Edition(session.Tiiki_CD) && edition != session.Tiiki_CD) {
            return Edition_Words(edition) + "のデータで、このデータフォルダの" +
                   Edition_Words(session.Tiiki_CD) + "のデータではありません";
        }
    }
    return {};
}

void Test_Identity(const Session& session, const Connection& cn, std::optional<std::int32_t> number,
                   const std::filesystem::path& shown) {
    if (const std::string fault = Identity_Fault(session, Identity_Of(cn), number); !fault.empty()) {
        throw Store_Error(shown, Store_Error::Reason::Bad_Content, fault);
    }
}

bool Is_Unreadable(const Store_Error& error) {
    switch (error.reason) {
    case Store_Error::Reason::Missing:
    case Store_Error::Reason::Not_A_Store:
    case Store_Error::Reason::Damaged:
    case Store_Error::Reason::Missing_Table:
    case Store_Error::Reason::Missing_Column:
        return true;
    default:
        return false;
    }
}

Connection Open_Company_Store(const Session& session, const std::filesystem::path& store,
                              std::optional<std::int32_t> number) {
    Connection cn(store, session.Db_Key, Connection::Mode::Read_Only);
    Test_Identity(session, cn, number, store);
    return cn;
}

} // namespace morvane
