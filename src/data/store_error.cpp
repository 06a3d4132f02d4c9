// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_error.h"

#include <cerrno>
#include <utility>

namespace morvane {

namespace {

std::string Full_Text(const std::filesystem::path& file, Store_Error::Reason reason,
                      const std::string& detail) {
    std::string text = "「" + file.string() + "」：" + Reason_Text(reason);
    if (!detail.empty()) {
        text += "（" + detail + "）";
    }
    return text;
}

} // namespace

Store_Error::Store_Error(std::filesystem::path failed_file, Reason why, const std::string& detail)
    : std::runtime_error(Full_Text(failed_file, why, detail)), file(std::move(failed_file)), reason(why) {}

std::string Reason_Text(Store_Error::Reason reason) {
    switch (reason) {
    case Store_Error::Reason::Missing:
        return "ファイルがありません。";
    case Store_Error::Reason::Not_A_Store:
        return "データファイルとして開けません。パスワードが違うか、別のプログラムのファイルか、途中で切れて"
               "います。";
    case Store_Error::Reason::Damaged:
        return "データファイルの内容が壊れています。";
    case Store_Error::Reason::Read_Only:
        return "書き込みが許可されていません。";
    case Store_Error::Reason::Disk_Full:
        return "ディスクの空き容量が足りません。";
    case Store_Error::Reason::Busy:
        return "ほかの処理が使用中です。";
    case Store_Error::Reason::Missing_Table:
        return "必要な表がありません。";
    case Store_Error::Reason::Missing_Column:
        return "必要な項目がありません。";
    case Store_Error::Reason::Bad_Content:
        return "内容を読み取れません。";
    case Store_Error::Reason::Failed:
        return "読み書きに失敗しました。";
    }
    return {};
}

Store_Error::Reason Reason_Of_Errno(int error_number) {
    switch (error_number) {
    case ENOENT:
    case ENOTDIR:
        return Store_Error::Reason::Missing;
    case EACCES:
    case EPERM:
    case EROFS:
        return Store_Error::Reason::Read_Only;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Store_Error::Reason::Disk_Full;
    case EBUSY:
    case EWOULDBLOCK:
        return Store_Error::Reason::Busy;
    default:
        return Store_Error::Reason::Failed;
    }
}

void Throw_Errno(const std::filesystem::path& file, const std::string& doing) {
    const int error_number = errno;
    const Store_Error::Reason reason = Reason_Of_Errno(error_number);
    const bool is_told = reason != Store_Error::Reason::Failed;
    throw Store_Error(file, reason,
                      is_told ? doing : doing + "、システムのエラー番号 " + std::to_string(error_number));
}

} // namespace morvane
