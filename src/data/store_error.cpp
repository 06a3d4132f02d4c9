// SPDX-FileCopyrightText: The Morvane developers
#include "data/store_error.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
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

/// What a failed system call means to the user, for the errors that have no reason of their own.
std::string Errno_Text(int error_number) {
    static constexpr std::pair<int, const char*> texts[] = {
        {EIO, "装置の読み書きエラー"},
        {ENOMEM, "メモリ不足"},
        {EMFILE, "開いているファイルが多すぎます"},
        {ENFILE, "開いているファイルが多すぎます"},
        {ENAMETOOLONG, "ファイル名が長すぎます"},
        {EISDIR, "同じ名前のフォルダがあります"},
        {ENOTEMPTY, "同じ名前のフォルダがあります"},
        {EEXIST, "同じ名前のファイルがあります"},
        {ELOOP, "リンクの先をたどれません"},
        {ENXIO, "装置の応答がありません"},
        {ENODEV, "装置の応答がありません"},
        {ESTALE, "ネットワーク上のフォルダに接続できません"},
        {ENOTCONN, "ネットワーク上のフォルダに接続できません"},
        {EINVAL, "このフォルダではできない操作です"},
        {ENOTSUP, "このフォルダではできない操作です"},
        {ENOLCK, "このフォルダではできない操作です"},
    };
    const auto* const found =
        std::find_if(std::begin(texts), std::end(texts),
                     [error_number](const auto& text) { return text.first == error_number; });
    return found == std::end(texts) ? "原因不明、番号 " + std::to_string(error_number) : found->second;
}

} // namespace

Store_Error::Store_Error(std::filesystem::path failed_file, Reason why, const std::string& detail)
    : std::runtime_error(Full_Text(failed_file, why, detail)), file(std::move(failed_file)), reason(why) {}

std::string Reason_Text(Store_Error::Reason reason) {
    switch (reason) {
    case Store_Error::Reason::Missing:
        return "見つかりません。";
    case Store_Error::Reason::Not_A_Store:
        return "データファイルとして開けません。";
    case Store_Error::Reason::Damaged:
        return "データファイルの内容が壊れています。";
    case Store_Error::Reason::Read_Only:
        return "アクセスが許可されていません。";
    case Store_Error::Reason::Disk_Full:
        return "ディスクの空き容量が足りません。";
    case Store_Error::Reason::Busy:
        return "ほかの処理が使用中です。";
    case Store_Error::Reason::Missing_Table:
        return "必要な表がありません。";
    case Store_Error::Reason::Missing_Column:
        return "必要な項目がありません。";
    case Store_Error::Reason::Bad_Content:
        return "内容が正しくありません。";
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
    throw Store_Error(file, reason, is_told ? doing : doing + "：" + Errno_Text(error_number));
}

} // namespace morvane
