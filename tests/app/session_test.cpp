#include "app/session.h"

#include "app/parameters.h"
#include "app/user_settings.h"
#include "core/format/text_lists.h"
#include "platform/native/native_file_store.h"
#include "support/fakes.h"
#include "support/golden.h"
#include "support/temporary_folder.h"

#include "report/text_renderer.h"
#include <algorithm>

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace testing;
using Strings = std::vector<std::string>;

TEST(GetParameters, DropsEverySlashAndKeepsSingleQuotes) {
    EXPECT_EQ(GetParameters(R"(/F"C:\a b\d.KOV" /S /L"C:\out" /X)"),
              (Strings{R"(FC:\a b\d.KOV)", "S", R"(LC:\out)", "X"}));
    EXPECT_EQ(GetParameters(R"(/F"a/b c" /X)"), (Strings{"Fab c", "X"})); // inside quotes too
    EXPECT_EQ(GetParameters("before it /X /S"), (Strings{"before it X", "S"}));
    EXPECT_EQ(GetParameters(R"(/F'C:\d.KOV')"), Strings{R"(F'C:\d.KOV')"});
    EXPECT_EQ(GetParameters(R"(/F C:\d.KOV)"), (Strings{"F", R"(C:\d.KOV)"}));
    EXPECT_EQ(GetParameters("  /X  //S"), (Strings{"  X", " S"})); // a blank that ends no token begins one
    EXPECT_TRUE(GetParameters("").empty());
    EXPECT_EQ(GetParameters(Repeat("/S ", 10'000)).size(), 10'000U);
}

TEST(ReadSwitches, TheFirstLetterInAnyCaseDecides) {
    const SwitchLine line = ReadSwitches(R"(/fone /F"two" /g /Quiet /residuals /C:\d /l"out\" /x)");
    EXPECT_EQ(line.file, "two");
    EXPECT_TRUE(line.plots && line.residuals && line.quit);
    EXPECT_EQ(line.compareFile, R"(:\d)");
    EXPECT_EQ(line.folder, R"(out\)");
    EXPECT_FALSE(line.save || line.print || line.show || line.stayHidden);
}

/// Writes down, in order, what is saved, printed and opened.
struct LoggedServices : NativeFileStore, Printer, TextEditor {
    FileResult Create(const std::string& path, const std::string& bytes) override {
        log.push_back("save " + path.substr(path.rfind('/') + 1));
        return NativeFileStore::Create(path, bytes);
    }
    FileResult Print(const std::string& text, const std::string& title) override {
        log.push_back("print " + title);
        printed = text;
        return printResult;
    }
    bool Open(const std::string& path) override {
        log.push_back("edit " + path.substr(path.rfind('/') + 1));
        return true;
    }
    Strings log;
    std::string printed;
    FileResult printResult{true, {}};
};

struct FixedFolders : Folders {
    explicit FixedFolders(std::string f) : folder(std::move(f)) {}
    std::string Documents() const override { return folder; }
    std::string Configuration() const override { return folder; }
    bool Make(const std::string& path) override { return std::filesystem::create_directories(path); }
    std::string folder;
};

struct MemorySettings : Settings {
    Values Read(const std::string& application, const std::string& section, std::string& fault) override {
        fault = unreadable;
        return stored[application + "/" + section];
    }
    FileResult Write(const std::string& application, const std::string& section,
                     const Values& values) override {
        stored[application + "/" + section] = values;
        return {true, {}};
    }
    std::map<std::string, Values> stored;
    std::string unreadable;
};

/// A session whose services write down, in order, what they are asked for.
class SessionRun : public ::testing::Test {
protected:
    SessionRun() {
        // The example, with the options that the switches overrule ticked.
        std::string text = ReadBytes(std::string(CORVANE_EXAMPLES) + "/mtcars.KOV");
        for (const std::string key : {"RESIDUAL_ANALYSIS= ", "SHOW_RESIDUAL_PLOT= "})
            text[text.find(key) + key.size()] = '1';
        WriteBytes(folder / "d.KOV", text);
        std::filesystem::create_directory(folder / "out");
    }

    /// Dispatches the line with $ for the folder, written as a line has it.
    bool Dispatch(std::string line) {
        std::string here = folder.Path();
        std::replace(here.begin(), here.end(), '/', '\\');
        for (std::size_t at = 0; (at = line.find('$')) != std::string::npos;)
            line.replace(at, 1, here);
        return session.Dispatch(line);
    }
    const AnalysisOptions& Options() const { return session.CurrentDataset().options; }

    TemporaryFolder folder;
    LoggedServices logged;
    Strings& log = logged.log;
    FixedFolders folders{folder.Path()};
    MemorySettings settings;
    RecordingDialogs dialogs;
    RecordingFeedback feedback;
    FixedClock clock;
    FixedRandom random;
    Session session{{logged, folders, settings, dialogs, feedback, clock, random, logged, logged}};
};

TEST_F(SessionRun, SavesBeforeItPrintsAndThenCloses) {
    EXPECT_TRUE(Dispatch(R"(/X /O /P /S /L"$\out\" /F"$\d.KOV")"));
    const std::string path = folder / "out/Notes0001.TXT";
    const Strings order{"save Notes0001.TXT", "edit Notes0001.TXT",
                        "print Results - Corvane v. 4.0.0 - d.KOV (Notes0001.TXT)"};
    EXPECT_EQ(log, order);
    ASSERT_EQ(session.Windows().size(), 1U);
    EXPECT_FALSE(session.Windows().front().open);
    EXPECT_EQ(ReadBytes(path), session.Windows().front().Text());
    EXPECT_EQ(logged.printed, WithLineFeeds(session.Windows().front().Text()));

    log.clear(); // /S and /L stay for the session, and the counter skips what exists
    WriteBytes(folder / "out/Notes0003.TXT", "mine");
    EXPECT_FALSE(Dispatch("/Y"));
    EXPECT_FALSE(Dispatch("/Y"));
    EXPECT_EQ(log[0], "save Notes0002.TXT");
    EXPECT_EQ(log[3], "save Notes0004.TXT");
}

TEST_F(SessionRun, PlotsAndResidualsFollowTheSwitchesAndNotTheFile) {
    Dispatch(R"(/F"$\d.KOV")");
    EXPECT_EQ(Options().RESIDUAL_ANALYSIS, 0);
    EXPECT_EQ(Options().SHOW_RESIDUAL_PLOT, 0);
    EXPECT_TRUE(session.Windows().front().open);
    EXPECT_TRUE(log.empty());
    Dispatch(R"(/F"$\d.KOV" /r /g)");
    EXPECT_EQ(Options().RESIDUAL_ANALYSIS, 1);
    EXPECT_EQ(Options().SHOW_RESIDUAL_PLOT, 1);
    EXPECT_EQ(session.Windows().back().caption, "Results - Corvane v. 4.0.0 - d.KOV");
}

TEST_F(SessionRun, SomeMessagesAreShown) {
    WriteBytes(folder / "old.KOV", "1,0,0\n");
    Dispatch(R"(/F"$\old.KOV")");
    EXPECT_EQ(dialogs.messages.size(), 1U);
    WriteBytes(folder / "w.KOV",
               "4,0,0\nTHRESHOLD_ANALYSIS= 1\nTRESHOLD_XY=many\nN=3\nDATA:\n1,,2,,,,\n2,,3,,,,\n3,,5,,,,\n");
    Dispatch(R"(/F"$\w.KOV")");
    EXPECT_NE(dialogs.messages.back().find("many"), std::string::npos) << dialogs.messages.back();
    logged.printResult = {false, "no spooler"};
    Dispatch(R"(/F"$\d.KOV" /P)");
    EXPECT_EQ(dialogs.messages.back(), "Source: Print\r\nDescription: no spooler\r\nCode: 1");
    Dispatch(R"(/F"$\old.KOV")"); // leaves no name over an empty dataset
    EXPECT_EQ(session.Caption(), "Corvane v. 4.0.0");
}

TEST_F(SessionRun, ACompareSwitchFillsTheListAndComputesNothing) {
    WriteBytes(folder / "l.KOC",
               "\"<Options>\"\n\"15\"\n\"</Options>\"\n#TRUE#,\"" + (folder / "d.KOV") + "\"\n");
    Dispatch(R"(/F"$\d.KOV")");
    Dispatch(R"(/F /C"$\l.KOC" /S /X)"); // a bare /F takes the file back
    EXPECT_EQ(session.Windows().size(), 1U);
    EXPECT_EQ(session.Comparison().ListCaption(), "File names (1 files)");
    EXPECT_TRUE(session.Comparison().Rows().front().selected);
    EXPECT_EQ(session.Comparison().settings.DigitsLong, "15");
    Dispatch(R"(/F /C"$\d.KOV")"); // no comparison file
    EXPECT_EQ(dialogs.messages, Strings{});
}

TEST_F(SessionRun, UserSettingsComeBeforeTheFile) {
    settings.unreadable = "x.conf: locked";
    session.Start("");
    EXPECT_EQ(dialogs.messages, Strings{"x.conf: locked"});
    settings.stored["VenlaK4/Config"] = {
        {"PlotYXLine", "0"}, {"AddComments", "0"}, {"ShowRef", "lots"}, {"AutoIncreaseRows", ""}};
    EXPECT_FALSE(session.Start(""));
    AnalysisOptions options = Options();
    EXPECT_EQ(options.PLOT_YX, 0);
    EXPECT_EQ(options.ADD_COMMENT, 0);
    EXPECT_EQ(options.SHOW_LITERATURE, 0);
    EXPECT_EQ(options.AUTO_ROW, 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "ORRL/KOV Files"));
    Dispatch(R"(/F"$\d.KOV")");
    EXPECT_EQ(Options().PLOT_YX, 0); // what a file never says stays
    EXPECT_EQ(Options().ADD_COMMENT, 1);

    options.SHOW_EXCLUDED = 1;
    WriteUserSettings(options, settings);
    const Settings::Values written{
        {"AutoIncreaseRows", "1"}, {"PasteSingleColumn", "1"}, {"SameScaleXYAxis", "1"}, {"AddComments", "0"},
        {"ShowExcluded", "1"},     {"PlotYXLine", "0"},        {"ShowRef", "0"}};
    EXPECT_EQ(settings.stored["VenlaK4/Config"], written);
}

TEST_F(SessionRun, DropsFilesAndClears) {
    const std::string first = folder / "d.KOV", second = folder / "e.KOV";
    WriteBytes(second, "4,0,0\nNOTES_BLUE= 1\nN=2\nDATA:\n1,,2,,,,\n3,,4,,,,\nNOTES:\nmine\n");
    session.Drop(std::vector{first, second});
    EXPECT_EQ(session.Caption(), "Corvane v. 4.0.0 - e.KOV");
    EXPECT_FALSE(session.Batch().BatchRun);
    session.Clear(); // answered with no
    EXPECT_EQ(Options().NOTES_BLUE, 1);
    dialogs.answer = true;
    session.Clear();
    EXPECT_EQ(dialogs.questions.back(), "Do you want clear the dataset?");
    EXPECT_EQ(session.Caption(), "Corvane v. 4.0.0");
    EXPECT_EQ(session.CurrentDataset().cells.LastFilledRow(), 0);
    EXPECT_EQ(session.CurrentDataset().cells.RowCount(), 2);
    EXPECT_EQ(session.CurrentDataset().notes + std::to_string(Options().NOTES_BLUE), "0");
}

TEST_F(SessionRun, ARunInTheBackgroundMeetsADocumentThatWentOn) {
    session.Open(folder / "d.KOV");
    Document& document = session.Doc();
    const auto calculate = [&](auto&& meanwhile) {
        PendingRun pending = session.BeginCalculation();
        RecordingProgress progress;
        RunResult result = pending.calculation->Run(progress);
        meanwhile();
        return session.FinishCalculation(pending, std::move(result));
    };
    const auto rank = [&] { return CellText(document.Data().cells.At(ColumnRankX, 1)); };
    const auto edit = [&](const char* text) {
        document.Change({"Type"},
                        [&](Dataset& dataset, SessionState&) { dataset.cells.Set(ColumnX, 2, text); });
    };
    document.Change({"Unrank"}, [](Dataset& dataset, SessionState&) {
        for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
            dataset.cells.Set(ColumnRankX, row, {});
    });

    const FinishedRun edited = calculate([&] { edit("21"); });
    EXPECT_TRUE(edited.ranksLeftOut && !edited.changesLeftOut);
    EXPECT_EQ(rank(), "");
    EXPECT_NE(edited.stamp.revision, document.DataRevision()); // the report says that the data changed
    EXPECT_EQ(edited.stamp.rows, 32);

    const FinishedRun quiet = calculate([] {});
    EXPECT_NE(rank(), "");
    EXPECT_EQ(quiet.stamp.revision, document.DataRevision());
    EXPECT_EQ(quiet.windows.back()->run.number, 2);
    EXPECT_EQ(document.UndoName(), "Calculate");
    document.Undo();
    EXPECT_EQ(rank(), "");

    const double mean = document.Session().MeanY;
    EXPECT_TRUE(calculate([&] {
                    document.SetOption(OptionOf(&AnalysisOptions::SwapXY), std::int16_t{1});
                }).changesLeftOut);
    EXPECT_EQ(document.Session().MeanY, mean);

    // A file that is refused leaves everything, the way back too.
    WriteBytes(folder / "old.KOV", "1,0,0\n");
    EXPECT_EQ(session.Open(folder / "old.KOV").state, LoadState::OldVersion);
    EXPECT_TRUE(document.CanUndo());
    EXPECT_EQ(document.Title(), "d.KOV");
}

TEST_F(SessionRun, ResultsGoToTheWorkingFolderAndToTheEditor) {
    Dispatch(R"(/F"$\d.KOV" /S)");
    EXPECT_TRUE(std::filesystem::exists(folder / "ORRL/KOV Files/Notes0001.TXT"));
    const ResultsServices services{logged, folders, dialogs, logged, logged};
    EditResults(session.Windows().front(), services);
    EditResults(session.Windows().front(), services);
    EXPECT_EQ(log.back(), "edit Results0002.TXT");
    EXPECT_EQ(CaptionWithFile("Results", "/a/exactly20characters!"), "Results (exactly20characters!)");
    EXPECT_EQ(CaptionWithFile("Results", "/a/two more than 20 chars"), "Results (...o more than 20 chars)");
}

} // namespace
} // namespace corvane
