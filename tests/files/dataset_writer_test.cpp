#include "files/dataset_writer.h"

#include "core/option_changes.h"
#include "files/dataset_reader.h"
#include "support/fakes.h"
#include "support/golden.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::MemoryFiles;
using testing::RecordingDialogs;

/// Saves, loads into a fresh session, and leaves the bytes in `bytes`.
Dataset RoundTrip(Dataset dataset, std::string* bytes = nullptr) {
    MemoryFiles files;
    RecordingDialogs dialogs;
    EXPECT_TRUE(SaveFile("d.KOV", dataset, files, dialogs).done);
    if (bytes)
        *bytes = files.files["d.KOV"];
    Dataset loaded;
    SessionState session;
    const LoadOutcome outcome = LoadFile("d.KOV", loaded, session, files);
    EXPECT_TRUE(outcome.Complete()) << outcome.Error();
    return loaded;
}

TEST(SaveFile, AFreshDatasetHasEveryKeyInOrderWithItsFormAndDefault) {
    testing::ExpectGolden("fresh_dataset.txt", DatasetFileText(Dataset{}));
}

TEST(SaveFile, EveryOptionComesBackButForTheThreeThatAreNeverRead) {
    Dataset dataset;
    for (const OptionRow& row : OptionTable()) {
        if (row.storage == Storage::NotInFile || row.member == OptionRow::Member{&AnalysisOptions::N})
            continue;
        OptionValue value = GetOption(dataset.options, row);
        if (auto* box = std::get_if<std::int16_t>(&value))
            *box = 2;
        else if (auto* text = std::get_if<std::string>(&value))
            *text = "0.25 of " + std::string(row.key);
        else if (auto* number = std::get_if<float>(&value))
            *number = 11.25F;
        PutOption(dataset.options, row, value);
    }
    dataset.options.DEVIATION_CI_PROB = "0"; // beside explicit limits
    dataset.options.LSM = false;
    dataset.options.WLSM = true;
    const Dataset loaded = RoundTrip(dataset);
    const AnalysisOptions fresh;
    for (const OptionRow& row : OptionTable())
        EXPECT_EQ(GetOption(loaded.options, row),
                  GetOption(row.storage == Storage::InFile ? dataset.options : fresh, row))
            << row.key;
}

TEST(SaveFile, TheGridPicturesLoseANumberSignAtEverySaveAndLoad) {
    const Dataset once = RoundTrip(Dataset{}), twice = RoundTrip(once), thrice = RoundTrip(twice);
    EXPECT_EQ(once.options.GRID_FORMAT_XY, "#.#000");
    EXPECT_EQ(once.options.GRID_FORMAT_SD, ".#0000");
    EXPECT_EQ(twice.options.GRID_FORMAT_XY, ".#000");
    EXPECT_EQ(thrice.options.GRID_FORMAT_XY, ".#000");
    EXPECT_EQ(thrice.options.GRID_FORMAT_SD, ".#0000");
}

TEST(SaveFile, NotesKeepTheirLineEndsOverManySavesAndDoNotGrow) {
    for (const char* notes : {"one line", "one line\r\n", "\r\n\r\n", "a\r\n\r\nb", "NOTES:\r\nDATA:"}) {
        Dataset dataset;
        dataset.notes = notes;
        std::string bytes;
        for (int time = 0; time < 3; ++time) {
            dataset = RoundTrip(dataset, &bytes);
            EXPECT_EQ(dataset.notes, notes);
            EXPECT_TRUE(bytes.ends_with("NOTES:\r\n" + std::string(notes) + "\r\n"));
        }
    }
    std::string bytes;
    RoundTrip(Dataset{}, &bytes);
    EXPECT_EQ(bytes.find("NOTES:"), std::string::npos);
}

TEST(SaveFile, NothingTypedIsLostWhateverItsCharacters) {
    for (const char* text :
         {"r² ± 5 µm", "χ² ≥ 1", "Ã©", "say \"so\"", "two\r\nlines", ", ", "\xC2\x81", "€uro"}) {
        Dataset dataset;
        dataset.notes = text;
        dataset.cells.Set(ColumnExclude, 1, std::string(text));
        dataset.cells.Set(ColumnX, 1, 0.1);
        dataset.cells.Set(ColumnY, 2, 1e-30);
        std::string bytes;
        const Dataset loaded = RoundTrip(dataset, &bytes);
        EXPECT_EQ(CellText(loaded.cells.At(ColumnExclude, 1)), text);
        EXPECT_EQ(loaded.notes, text);
        EXPECT_EQ(CellText(loaded.cells.At(ColumnX, 1)), "0.1");
        EXPECT_NE(bytes.find("\r\n0.1,\"\","), std::string::npos) << "numbers are written plain";
    }
    Dataset dataset;
    dataset.notes = "r²";
    std::string bytes;
    RoundTrip(dataset, &bytes);
    EXPECT_TRUE(bytes.ends_with("r\xB2\r\n")) << "Windows-1252 where it can be used";
}

TEST(SaveFile, AsksOnceAboutEmptyRows) {
    MemoryFiles files;
    RecordingDialogs dialogs;
    Dataset dataset;
    for (std::int32_t row : {1, 2, 3, 5}) {
        dataset.cells.Set(ColumnX, row, std::string("1"));
        dataset.cells.Set(ColumnY, row, std::string("2"));
    }
    dataset.cells.Set(ColumnExclude, 4, std::string("Y"));
    SaveFile("d.KOV", dataset, files, dialogs);
    EXPECT_EQ(dialogs.questions,
              std::vector<std::string>{"Empty rows were found in the dataset. Do you want to remove them?"});
    EXPECT_EQ(dataset.cells.RowCount(), 19);
    dialogs.answer = true;
    SaveFile("d.KOV", dataset, files, dialogs);
    EXPECT_EQ(dataset.cells.RowCount(), 4);
    SaveFile("d.KOV", dataset, files, dialogs);
    EXPECT_EQ(dialogs.questions.size(), 2U);
}

} // namespace
} // namespace corvane
