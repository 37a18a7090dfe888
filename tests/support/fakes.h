#pragma once

#include "core/run_services.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/feedback.h"
#include "platform/file_store.h"
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

    std::map<std::string, std::string> files;
};

/// The services of a run, all of them fakes.
struct RunFakes {
    RecordingDialogs dialogs;
    RecordingFeedback feedback;
    FixedClock clock;
    FixedRandom random;
    MemoryFiles files;

    RunServices Services(const std::string& residueFolder = "") {
        return {dialogs, feedback, clock, random, files, residueFolder};
    }
};

} // namespace corvane::testing
