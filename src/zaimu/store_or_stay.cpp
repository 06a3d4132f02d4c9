// SPDX-FileCopyrightText: The Morvane developers
#include "zaimu/store_or_stay.h"

#include "data/store_error.h"
#include "session/boxes.h"

#include <string>

namespace morvane {

bool Store_Or_Stay(const Session& session, const std::function<void()>& store) {
    try {
        store();
        return true;
    } catch (const Store_Error& error) {
        Tell(session, "データファイルエラー",
             std::string("保存できませんでした。\n") + error.what() +
                 "\n\n入力した内容は画面に残っています。原因を取り除いてから、もう一度実行してください。");
        return false;
    }
}

} // namespace morvane
