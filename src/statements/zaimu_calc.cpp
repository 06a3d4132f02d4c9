// SPDX-FileCopyrightText: The Morvane developers
#include "statements/zaimu_calc.h"

#include <array>

namespace morvane {

namespace {

constexpr Account_Book::Columns Column_Of(Amount_Column column) {
    constexpr std::array names = {"仮金額", "金額", "改善後残高"};
    return {names.at(static_cast<std::size_t>(column))};
}

} // namespace

Account_Book Read_Book(const Connection& cn, const Session& session, Amount_Column column) {
    return {cn, session.Syori_Ki, Column_Of(column), Hidden_Rows::Left_Out};
}

Account_Book Read_Journal(const Connection& cn, const Session& session) {
    return {cn, session.Syori_Ki, Account_Book::journal, Hidden_Rows::Counted};
}

void Zaimu_Shukei(const Connection& cn, const Session& session, Amount_Column column) {
    Account_Book book = Read_Book(cn, session, column);
    book.Form_Totals(Statement_Form_Of(session.Kind()));
    book.Store(cn);
}

void Zaimu_Shukei(Recordset& rows, Firm_Kind kind, Amount_Column column) {
    Account_Book book(rows, Column_Of(column), Hidden_Rows::Left_Out);
    book.Form_Totals(Statement_Form_Of(kind));
    book.Store(rows);
}

void Zaimu_Shukei(const Session& session, Amount_Column column) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Zaimu_Shukei(cn, session, column);
    transaction.Commit();
}

void Zaimu_Shukei_KK(const Connection& cn, const Session& session) {
    Account_Book book = Read_Journal(cn, session);
    book.Form_Balances();
    book.Form_Totals(Statement_Form_Of(session.Kind()));
    book.Store(cn);
}

void Zaimu_Shukei_KK(Recordset& rows, Firm_Kind kind, const Account_Book::Columns& journal) {
    Account_Book book(rows, journal, Hidden_Rows::Counted);
    book.Form_Balances();
    book.Form_Totals(Statement_Form_Of(kind));
    book.Store(rows);
}

void Zaimu_Shukei_KK(const Session& session) {
    const Connection cn = Cn_Open(session);
    Transaction transaction(cn);
    Zaimu_Shukei_KK(cn, session);
    transaction.Commit();
}

} // namespace morvane
