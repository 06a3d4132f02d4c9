// SPDX-FileCopyrightText: The Morvane developers
#include "report/print_queue.h"

#include <array>
#include <cups/cups.h>
#include <memory>

namespace morvane {

namespace {

constexpr int connect_milliseconds = 5000;
constexpr double answer_seconds = 5.0;

struct Release {
    void operator()(http_t* http) const { httpClose(http); }
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
    void operator()(cups_dest_t* dest) const { cupsFreeDests(1, dest); }
    void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
};
using Http = std::unique_ptr<http_t, Release>;
using Ipp = std::unique_ptr<ipp_t, Release>;
using Dest = std::unique_ptr<cups_dest_t, Release>;
using Dest_Info = std::unique_ptr<cups_dinfo_t, Release>;

/// The options of a job; freed with it.
class Options {
  public:
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;
    ~Options() { cupsFreeOptions(count, first); }

    void Add(const char* name, const char* value) { count = cupsAddOption(name, value, count, &first); }

    int count = 0;
    cups_option_t* first = nullptr;
};

std::string Quoted(const std::string& queue) {
    return "プリンタ「" + queue + "」";
}

Http Connect() {
    Http http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                           connect_milliseconds, nullptr));
    if (http == nullptr) {
        throw Print_Failure("印刷システム（CUPS）が動作していません。");
    }
    httpSetTimeout(
        http.get(), answer_seconds, [](http_t*, void*) { return 0; }, nullptr);
    return http;
}

/// Asks for attributes of a queue, or of a job in it where `job` is not 0. Null where the server knows none.
Ipp Ask_For(http_t* http, ipp_op_t operation, const std::string& queue, int job) {
    std::array<char, HTTP_MAX_URI> uri{};
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                     "localhost", ippPort(), "/printers/%s", queue.c_str());
    ipp_t* request = ippNewRequest(operation);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
    if (job != 0) {
        ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
    }
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    Ipp answer(cupsDoRequest(http, request, "/"));
    if (answer == nullptr || ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) {
        return nullptr;
    }
    return answer;
}

int Number_Of(const Ipp& answer, const char* name, ipp_tag_t tag, int otherwise) {
    ipp_attribute_t* attribute = ippFindAttribute(answer.get(), name, tag);
    return attribute == nullptr ? otherwise : ippGetInteger(attribute, 0);
}

/// Reasons that end only when somebody sees to the printer. Severities follow the reason's name.
constexpr std::array<std::pair<std::string_view, const char*>, 10> hindrances = {
    {{"media-empty", "用紙がありません。"},
     {"media-needed", "用紙がありません。"},
     {"media-jam", "用紙が詰まっています。"},
     {"cover-open", "カバーが開いています。"},
     {"door-open", "カバーが開いています。"},
     {"toner-empty", "トナーがありません。"},
     {"marker-supply-empty", "インクまたはトナーがありません。"},
     {"offline", "オフラインです。"},
     {"shutdown", "電源が入っていません。"},
     {"timed-out", "応答がありません。"}}};

/// Whether a queue tells a reason (its severity behind it apart).
bool Has_Reason(const Ipp& printer, std::string_view reason) {
    ipp_attribute_t* reasons = ippFindAttribute(printer.get(), "printer-state-reasons", IPP_TAG_KEYWORD);
    for (int i = 0; reasons != nullptr && i < ippGetCount(reasons); ++i) {
        if (std::string_view(ippGetString(reasons, i, nullptr)).starts_with(reason)) {
            return true;
        }
    }
    return false;
}

/// What holds a queue up, as its state and reasons tell it; empty where nothing does.
std::string Hindrance_Of(const Ipp& printer) {
    if (Number_Of(printer, "printer-state", IPP_TAG_ENUM, IPP_PSTATE_IDLE) == IPP_PSTATE_STOPPED) {
        return "停止しています。";
    }
    ipp_attribute_t* reasons = ippFindAttribute(printer.get(), "printer-state-reasons", IPP_TAG_KEYWORD);
    for (int i = 0; reasons != nullptr && i < ippGetCount(reasons); ++i) {
        const std::string_view reason = ippGetString(reasons, i, nullptr);
        if (reason.ends_with("-warning") || (reason.ends_with("-report") && reason != "offline-report")) {
            continue;
        }
        for (const auto& [begin, text] : hindrances) {
            if (reason.starts_with(begin)) {
                return text;
            }
        }
    }
    return "";
}

/// Whether a queue takes documents and prints them.
void Test_Queue(http_t* http, const std::string& queue) {
    const Ipp printer = Ask_For(http, IPP_OP_GET_PRINTER_ATTRIBUTES, queue, 0);
    if (printer == nullptr) {
        throw Print_Failure(Quoted(queue) + "がありません。");
    }
    ipp_attribute_t* accepting =
        ippFindAttribute(printer.get(), "printer-is-accepting-jobs", IPP_TAG_BOOLEAN);
    if (accepting != nullptr && ippGetBoolean(accepting, 0) == 0) {
        throw Print_Failure(Quoted(queue) + "は印刷を受け付けていません。");
    }
    if (Number_Of(printer, "printer-state", IPP_TAG_ENUM, IPP_PSTATE_IDLE) == IPP_PSTATE_STOPPED) {
        throw Print_Failure(Quoted(queue) + "は停止しています。");
    }
}

/// Raises the failure that the library met last.
[[noreturn]] void Raise_Last(const std::string& queue) {
    throw Print_Failure(Quoted(queue) + "に送れませんでした（" + cupsLastErrorString() + "）。");
}

/// What the user has set for a queue, and over it the options of the document.
void Gather(Options& all, const cups_dest_t& dest, const Print_Options& options) {
    for (int i = 0; i < dest.num_options; ++i) {
        all.Add(dest.options[i].name, dest.options[i].value);
    }
    for (const auto& [name, value] : options) {
        all.Add(name.c_str(), value.c_str());
    }
}

} // namespace

Print_Job Send_To_Queue(const std::string& queue, const std::string& title, std::string_view pdf,
                        const Print_Options& options) {
    const std::size_t slash = queue.find('/');
    const std::string name = queue.substr(0, slash);
    const std::string instance = slash == std::string::npos ? "" : queue.substr(slash + 1);
    const Http http = Connect();
    const Dest dest(
        cupsGetNamedDest(http.get(), name.c_str(), instance.empty() ? nullptr : instance.c_str()));
    if (dest == nullptr) {
        throw Print_Failure(Quoted(queue) + "がありません。");
    }
    // Makes the queue of a printer that was found on the network and never used.
    const Dest_Info info(cupsCopyDestInfo(http.get(), dest.get()));
    Test_Queue(http.get(), name);
    Options all;
    Gather(all, *dest, options);
    Print_Job job{name, 0};
    if (info == nullptr || cupsCreateDestJob(http.get(), dest.get(), info.get(), &job.id, title.c_str(),
                                             all.count, all.first) > IPP_STATUS_OK_CONFLICTING) {
        Raise_Last(queue);
    }
    if (cupsStartDestDocument(http.get(), dest.get(), info.get(), job.id, title.c_str(), CUPS_FORMAT_PDF, 0,
                              nullptr, 1) != HTTP_STATUS_CONTINUE ||
        cupsWriteRequestData(http.get(), pdf.data(), pdf.size()) != HTTP_STATUS_CONTINUE ||
        cupsFinishDestDocument(http.get(), dest.get(), info.get()) > IPP_STATUS_OK_CONFLICTING) {
        const Print_Failure failure(Quoted(queue) + "に送れませんでした（" + cupsLastErrorString() + "）。");
        cupsCancelDestJob(http.get(), dest.get(), job.id);
        throw failure;
    }
    return job;
}

Job_State State_Of(const Print_Job& job) {
    const Http http = Connect();
    const Ipp answer = Ask_For(http.get(), IPP_OP_GET_JOB_ATTRIBUTES, job.queue, job.id);
    if (answer == nullptr) {
        if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
            return {Job_Progress::Done, ""};
        }
        throw Print_Failure(std::string("印刷システム（CUPS）が応答しません（") + cupsLastErrorString() +
                            "）。");
    }
    switch (Number_Of(answer, "job-state", IPP_TAG_ENUM, IPP_JSTATE_COMPLETED)) {
    case IPP_JSTATE_COMPLETED:
        return {Job_Progress::Done, ""};
    case IPP_JSTATE_ABORTED:
        return {Job_Progress::Failed, Quoted(job.queue) + "で印刷できませんでした。"};
    case IPP_JSTATE_CANCELED:
        return {Job_Progress::Failed, Quoted(job.queue) + "の印刷は取り消されました。"};
    case IPP_JSTATE_STOPPED:
        return {Job_Progress::Held_Up, Quoted(job.queue) + "の印刷が停止しています。"};
    case IPP_JSTATE_HELD:
        return {Job_Progress::Waiting, ""}; // as its options ask
    default:
        break;
    }
    const Ipp printer = Ask_For(http.get(), IPP_OP_GET_PRINTER_ATTRIBUTES, job.queue, 0);
    const std::string hindrance = printer == nullptr ? "ありません。" : Hindrance_Of(printer);
    if (!hindrance.empty()) {
        return {Job_Progress::Held_Up, Quoted(job.queue) + "は" + hindrance};
    }
    if (Number_Of(answer, "job-state", IPP_TAG_ENUM, IPP_JSTATE_PENDING) != IPP_JSTATE_PROCESSING) {
        return {Job_Progress::Waiting, ""};
    }
    return {printer != nullptr && Has_Reason(printer, "connecting-to-device") ? Job_Progress::Connecting
                                                                              : Job_Progress::Printing,
            ""};
}

} // namespace morvane
