#pragma once

#include "platform/clipboard.h"
#include "platform/file_dialogs.h"
#include "platform/http.h"
#include "platform/mail.h"
#include "platform/programs.h"

#include <map>
#include <utility>

namespace corvane::testing {

/// Keeps what was asked and gives the same answer every time.
class RecordingFileDialogs : public FileDialogs {
public:
    std::vector<std::string> AskFilesToOpen(const FileQuestion& question) override {
        questions.push_back(question);
        return toOpen;
    }
    std::optional<std::string> AskFileToSave(const FileQuestion& question) override {
        questions.push_back(question);
        return toSave;
    }
    std::optional<std::string> AskFolder(const FileQuestion& question) override {
        questions.push_back(question);
        return folder;
    }

    std::vector<FileQuestion> questions;
    std::vector<std::string> toOpen;
    std::optional<std::string> toSave, folder;
};

class MemoryClipboard : public Clipboard {
public:
    std::optional<std::string> Text() const override { return text; }
    void PutText(const std::string& put) override { text = put; }
    void PutPicture(const std::string& png) override {
        text.reset();
        picture = png;
    }

    std::optional<std::string> text;
    std::string picture;
};

/// Programs that write their output and end when they are first waited for.
class RecordingPrograms : public Programs {
public:
    std::unique_ptr<RunningProgram> Start(const ProgramStart& start, std::string& reason) override {
        started.push_back(start);
        if (!refusal.empty()) {
            reason = refusal;
            return nullptr;
        }
        return std::make_unique<Running>(*this);
    }

    std::vector<ProgramStart> started;
    std::string refusal, output, errors;
    std::optional<int> exit = 0; ///< Nothing: they run until they are ended.
    int ended = 0;               ///< How many were.

private:
    class Running : public RunningProgram {
    public:
        explicit Running(RecordingPrograms& owner) : programs(owner) {}
        std::optional<int> Wait(std::chrono::milliseconds, const OutputSink& sink) override {
            if (!std::exchange(handed, true)) {
                sink(OutputStream::Output, programs.output);
                sink(OutputStream::Error, programs.errors);
            }
            return programs.exit;
        }
        void End(std::chrono::milliseconds) override { ++programs.ended; }

    private:
        RecordingPrograms& programs;
        bool handed = false;
    };
};

/// Answers from memory; an address that it does not know is not found.
class MemoryHttp : public Http {
public:
    HttpAnswer Get(const HttpRequest& request, Progress& progress, const std::stop_token& stop) override {
        asked.push_back(request.address);
        if (stop.stop_requested())
            return {.cancelled = true};
        const auto page = pages.find(request.address);
        if (page == pages.end())
            return {.status = 404};
        if (page->second.size() > request.mostBytes)
            return {.status = 200, .reason = "the answer is too long"};
        progress.ShowShare(1);
        return {.status = 200, .body = page->second};
    }

    std::map<std::string, std::string> pages;
    std::vector<std::string> asked;
};

class RecordingMail : public Mail {
public:
    FileResult Compose(const MailMessage& message) override {
        composed.push_back(message);
        return result;
    }
    FileResult Send(const MailMessage& message, const MailServer&) override {
        sent.push_back(message);
        return result;
    }

    std::vector<MailMessage> composed, sent;
    FileResult result{true, {}};
};

} // namespace corvane::testing
