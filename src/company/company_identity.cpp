// SPDX-FileCopyrightText: The Morvane developers
#include "company/company_identity.h"

#include "data/connection.h"

namespace morvane {

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
        identity.region = Edition_Of(firm.Text_At(3));
    }
    Statement forms = cn.Prepare("SELECT DISTINCT 並び順 FROM Ks_Zaihyo WHERE 建設科目CD=99");
    while (!identity.chart && forms.Step()) {
        identity.chart = Edition_Of(Data_Form_Of(forms.Integer_At(0)));
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
    for (const std::optional<Edition>& edition : {identity.region, identity.chart}) {
        if (edition && session.Tiiki_CD && edition != session.Tiiki_CD) {
            return Name_Of(*edition) + "版のデータで、このデータフォルダの" + Name_Of(*session.Tiiki_CD) +
                   "版のデータではありません";
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
