#pragma once

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/file_store.h"
#include "platform/progress.h"
#include "platform/random.h"

#include <map>
#include <string>
#include <vector>

namespace corvane::testing {

/// Keeps what was shown and answers every question the same way.
class RecordingDialogs : public Dialogs {
public:
    void ShowMessage(MessageStyle, const std::string& text, const std::string&) override {
        messages.push_back(text);
    }
    bool AskYesNo(const std::string& text, const std::string&, bool) override {
        questions.push_back(text);
        return answer;
    }

    std::vector<std::string> messages, questions;
    bool answer = false;
};

class RecordingFeedback : public Feedback {
public:
    void ShowProgress(const std::string& text) override { shown.push_back(text); }
    void HideProgress() override { shown.emplace_back("(hidden)"); }
    void Beep() override {}

    std::vector<std::string> shown;
};

class FixedRandom : public Random {
public:
    std::uint64_t Seed() override { return 20240611; }
};

class FixedClock : public Clock {
public:
    ClockTime Now() const override { return {2026, 3, 9, 7, 5, 4}; }
};

class MemoryFiles : public FileStore {
public:
    FileResult Read(const std::string& path, std::string& bytes) const override {
        const auto found = files.find(path);
        if (found == files.end())
            return {false, "No such file or directory"};
        bytes = found->second;
        return {true, {}};
    }
    FileResult Replace(const std::string& path, const std::string& bytes) override {
        files[path] = bytes;
        return {true, {}};
    }

    FileResult Create(const std::string& path, const std::string& bytes) override {
        return files.contains(path) ? FileResult{false, "File exists", true} : Replace(path, bytes);
    }

    FileResult Remove(const std::string& path) override { return {files.erase(path) == 1, "No such file"}; }

    std::map<std::string, std::string> files;
};

/// Keeps what a run tells while it goes on.
class RecordingProgress : public Progress {
public:
    void ShowStage(const std::string& text) override { stages.push_back(text); }
    void ShowShare(double share) override { shares.push_back(share); }
    void Tell(MessageStyle, const std::string& text, const std::string& title) override {
        messages.push_back(text);
        titles.push_back(title);
    }

    std::vector<std::string> stages, messages, titles;
    std::vector<double> shares;
};

} // namespace corvane::testing
