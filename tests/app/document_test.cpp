#include "app/document.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Clock = std::chrono::steady_clock;
using Options = AnalysisOptions;

/// Keeps the changes that it was told of.
struct Witness : DocumentObserver {
    explicit Witness(Document& observed) : document(observed) { document.Add(*this); }
    ~Witness() override { document.Remove(*this); }
    void DocumentChanged(const DocumentChange& change) override { changes.push_back(change); }

    Document& document;
    std::vector<DocumentChange> changes;
};

Document::Work Put(std::int32_t row, std::string_view text) {
    return [=](Dataset& dataset, SessionState&) { dataset.cells.Set(ColumnY, row, text); };
}

std::string Y(const Document& document, std::int32_t row) {
    return CellText(document.Data().cells.At(ColumnY, row));
}

TEST(Document, EveryChangeHasAWayBackAndForth) {
    Document document;
    Witness witness(document);
    document.Change({"Type 1", GridRange{1, 1, ColumnY, ColumnY}}, Put(1, "1"));
    document.Change({"Type 2"}, Put(2, "2"));
    document.SetOption(OptionOf(&Options::MSPE_BOOTSTRAP), std::int16_t{2});
    document.Change({"Type notes"}, [](Dataset& dataset, SessionState&) { dataset.notes = "n"; });
    document.Change({"Nothing"}, Put(2, "2"));
    ASSERT_EQ(witness.changes.size(), 4U);
    EXPECT_TRUE(witness.changes[0].cells && witness.changes[0].modified && document.Modified());
    EXPECT_EQ(witness.changes[2].options.size(), 1U);
    EXPECT_EQ(document.UndoName(), "Type notes");

    const std::uint64_t revision = document.DataRevision();
    while (document.CanUndo())
        document.Undo();
    EXPECT_EQ(Y(document, 1) + Y(document, 2) + document.Data().notes, "");
    EXPECT_FALSE(document.Modified());
    EXPECT_EQ(witness.changes.back().place, (GridRange{1, 1, ColumnY, ColumnY}));
    EXPECT_EQ(document.DataRevision(), revision + 2);
    while (document.CanRedo())
        document.Redo();
    EXPECT_EQ(Y(document, 1) + Y(document, 2) + document.Data().notes, "12n");
    EXPECT_EQ(document.Data().options.MSPE_BOOTSTRAP, 2);
    document.Undo();
    document.Change({"Type 3"}, Put(3, "3"));
    EXPECT_FALSE(document.CanRedo());
}

TEST(Document, ChangesOfOneKeyJoinUntilAPause) {
    Document document;
    const Clock::time_point start = Clock::now();
    const auto type = [&](const char* text, int milliseconds) {
        document.SetOption(OptionOf(&Options::HIST_BINS), std::string(text),
                           start + std::chrono::milliseconds(milliseconds));
    };
    type("1", 0);
    type("12", 900);
    type("123", 1800);
    type("1234", 2900);
    document.Undo();
    EXPECT_EQ(document.Data().options.HIST_BINS, "123");
    document.Undo();
    EXPECT_EQ(document.Data().options.HIST_BINS, Options().HIST_BINS);
    EXPECT_FALSE(document.CanUndo());
}

TEST(Document, LoadingBeginsAnewAndSavingClearsTheMark) {
    Document document;
    document.Change({"Type 1"}, Put(1, "1"));
    document.Load([](Dataset& dataset, SessionState& session) {
        dataset.cells.Clear();
        session.CurrentDatasetName = "/d/oak.KOV";
    });
    EXPECT_FALSE(document.CanUndo() || document.Modified() || document.NeedsName());
    EXPECT_EQ(document.Title(), "oak.KOV");

    // What switches do is no work of the user's.
    document.ChangeSilently([](Dataset& dataset, SessionState&) { dataset.options.RESIDUAL_ANALYSIS = 1; });
    EXPECT_FALSE(document.Modified() || document.CanUndo());
    document.Change({"Type 1"}, Put(1, "1"));
    document.MarkSaved("/d/ash.KOV");
    EXPECT_FALSE(document.Modified());
    document.Undo();
    EXPECT_TRUE(document.Modified());
    EXPECT_EQ(document.Path(), "/d/ash.KOV"); // a file that was written stays the document's
    document.Redo();
    EXPECT_FALSE(document.Modified());

    document.Load([](Dataset&, SessionState&) {}, false);
    EXPECT_TRUE(document.NeedsName());
}

} // namespace
} // namespace corvane
