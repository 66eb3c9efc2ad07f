// SPDX-License-Identifier: MIT
// vndesk-convert: brings columns of an old database, and text files, to Unicode.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "comkit/base/com_error.h"
#include "console/console.h"
#include "convert/judge.h"
#include "convert/options.h"
#include "convert/table_conversion.h"
#include "convert/whole_file.h"
#include "vndesk_version.h"

namespace {

using namespace vndesk::convert;
using vndesk::console::ConnectionStringOf;
using vndesk::console::Fill;
using vndesk::console::Print;
using vndesk::console::Utf8Of;

// What providers say ends its lines with CR and LF.
std::wstring InOneLine(std::wstring text) {
    std::erase(text, L'\r');
    std::replace(text.begin(), text.end(), L'\n', L' ');
    return text.substr(0, text.find_last_not_of(L' ') + 1);
}

enum ExitCode { kDone, kDoubtful, kNothingChanged, kWrongOption, kNotKnown };

class Program {
public:
    Program(const Options& options, vndesk::console::Language language)
        : options_(options), language_(language) {}

    int Run() const {
        if (!options_.wrong.empty())
            return Wrong(options_.wrong + L"?");
        if (options_.action == Action::Version) {
            Print(STD_OUTPUT_HANDLE, L"vndesk-convert " VNDESK_WIDE_VERSION L"\n");
            return kDone;
        }
        if (options_.action == Action::Help) {
            Print(STD_OUTPUT_HANDLE, TextOf(Message::Usage, language_));
            return kDone;
        }
        if (!options_.missing.empty())
            return Wrong(Said(Message::Missing, {options_.missing}));
        try {
            return options_.action == Action::File ? ConvertFile() : ConvertTableOf();
        } catch (const Refusal& refusal) {
            const bool known = refusal.message != Message::AnswerLost;
            Complain(Said(refusal.message, refusal.values) +
                     (known ? L" " + Said(Message::NothingChanged) : L""));
            return known ? kNothingChanged : kNotKnown;
        }
    }

private:
    std::wstring Said(Message message, const std::vector<std::wstring>& values = {}) const {
        return Fill(TextOf(message, language_), values);
    }
    static void Complain(const std::wstring& text) {
        Print(STD_ERROR_HANDLE, L"vndesk-convert: " + text + L"\n");
    }
    int Wrong(const std::wstring& text) const {
        Complain(text + L"\n\n" + TextOf(Message::Usage, language_));
        return kWrongOption;
    }
    void TellOf(Message message, const std::vector<std::wstring>& values) const {
        Print(STD_OUTPUT_HANDLE, Said(message, values) + L"\n");
    }

    int ConvertTableOf() const {
        vndesk::CheckHr(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        // What is said of failures has no secrets in it, and a lost answer is told.
        vndesk::Settings settings;
        settings.OnConnectionError = vndesk::ConnectionErrors::Raise;
        vndesk::OpenedOrNot opened =
            vndesk::TryConnection(ConnectionStringOf(options_.connectionString), settings);
        if (opened.failure)
            throw Refusal{Message::CannotOpen, {InOneLine(opened.failure->providerText)}};
        const std::size_t doubtful =
            ConvertTable(opened.database, options_,
                         [this](Message message, const auto& values) { TellOf(message, values); });
        CloseConnection(opened.database);
        return doubtful == 0 ? kDone : kDoubtful;
    }

    int ConvertFile() const {
        std::string bytes;
        const vndesk::ErrorState unread = vndesk::Trap([&] { bytes = ReadWhole(options_.in); });
        if (unread)
            throw Refusal{Message::FileNotRead, {options_.in, unread.description}};
        const Judged judged = JudgeFile(
            {reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}, options_.from);
        if (judged.verdict == Verdict::Already)
            throw Refusal{Message::FileIsUnicode, {options_.in}};
        if (judged.verdict == Verdict::Doubtful)
            throw Refusal{Message::FileNotRecognised, {options_.in, NameOf(judged.doubt)}};
        if (options_.dryRun) {
            TellOf(Message::FileWouldConvert, {options_.in, options_.out});
            return kDone;
        }
        const vndesk::ErrorState unwritten = vndesk::Trap([&] {
            WriteWhole(options_.out,
                       (options_.mark ? "\xEF\xBB\xBF" : "") + Utf8Of(judged.converted));
        });
        if (unwritten)
            throw Refusal{Message::FileNotWritten, {options_.out, unwritten.description}};
        TellOf(Message::FileConverted, {options_.in, options_.out});
        return kDone;
    }

    const Options& options_;
    const vndesk::console::Language language_;
};

} // namespace

int wmain(int argc, wchar_t** argv) {
    const Options options = ParseOptions({argv + 1, argv + argc});
    int code = kNothingChanged;
    const vndesk::ErrorState error = vndesk::Trap([&] {
        code = Program(options, options.language.value_or(vndesk::console::UserLanguage())).Run();
    });
    if (error)
        Print(STD_ERROR_HANDLE, L"vndesk-convert: " +
                                    (error.description.empty() ? vndesk::SystemMessage(error.code)
                                                               : error.description) +
                                    L"\n");
    return code;
}
