#include "files/csv_import.h"

#include "files/csv_writer.h"
#include "files/number_form.h"
#include "support/fakes.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace corvane {
namespace {

struct Imported {
    Dataset dataset;
    CsvOutcome outcome;

    std::string Cell(int column, std::int32_t row) const { return CellText(dataset.cells.At(column, row)); }
    /// X, Y and the mark of every row, or why there is none.
    std::string Rows() const {
        if (!outcome.done)
            return outcome.Located(outcome.fault);
        std::string text;
        for (std::int32_t row = 1; row <= dataset.cells.RowCount(); ++row)
            text += Cell(ColumnX, row) + " " + Cell(ColumnY, row) + Cell(ColumnExclude, row) + "|";
        return text;
    }
    bool Warns(const std::string& part) const {
        return std::ranges::any_of(outcome.warnings, [&](const CsvRemark& warning) {
            return outcome.Located(warning).find(part) != std::string::npos;
        });
    }
};

Imported Import(const std::string& text, const CsvOptions& options = {}) {
    testing::MemoryFiles files;
    files.files["t.csv"] = text;
    Imported imported;
    SessionState session;
    imported.outcome = ImportCsv("t.csv", options, imported.dataset, session, files);
    EXPECT_EQ(imported.dataset.options.N, std::to_string(imported.dataset.cells.RowCount()));
    if (!imported.outcome.done) {
        EXPECT_EQ(imported.dataset.cells.RowCount(), DataMatrix::StartRows) << text;
        EXPECT_EQ(imported.dataset.cells.LastFilledRow(), 0) << text;
    }
    return imported;
}

CsvOptions Decimal(char mark) {
    CsvOptions options;
    options.decimal = mark;
    return options;
}

void ExpectRefused(const std::string& text, const std::string& part, const CsvOptions& options = {}) {
    const Imported imported = Import(text, options);
    const std::string shown = text.substr(0, 200);
    EXPECT_FALSE(imported.outcome.done) << shown;
    const std::string said = imported.outcome.Located(imported.outcome.fault);
    EXPECT_NE(said.find(part), std::string::npos) << shown << "\n" << said;
}

TEST(ImportCsv, TheSameTableInManyForms) {
    for (const char* text :
         {"X,Y\n1.5,2.25\n-3,4e2\n", "x;y\r\n1,5;2,25\r\n-3;4e2", "X\tY\r1.5\t2.25\r\r-3\t4e2\r",
          "\xEF\xBB\xBF\"X\",\"Y\"\n\"1.5\" , \"2.25\"\n\n   \n-3,\"4e2\"\n", "Y;x;\n2,25;1,5;\n4e2;-3;\n",
          "1.5,2.25\n-3,4e2", "name;Y;X\n\"a;\nb \"\"c\"\"\";2,25;1,5\nM\xFCller;4e2;-3\n",
          "1,5;2,25\n-3;4e2\n", "obs, mm;pred\n2,25;1,5\n4e2;-3", "X, one;Y\n1,5;2,25\n-3;4e2\n",
          "x, y\n 1.5,2.25 \n-3,4e2", "sep=;\r\nX;Y\r\n1,5;2,25\r\n-3;4e2\r\n",
          "\"SEP=,\"\nX;1,Y\n1.5,2.25\n-3,4e2\n", "X,Y\n\t\"1.5\",\"2.25\"\t\n\t\n-3,4e2\n",
          "y_obs\ty_pred\n2.25\t1.5\n4e2\t-3"})
        EXPECT_EQ(Import(text).Rows(), "1.5 2.25|-3 4e2|") << text;
}

TEST(ImportCsv, ASeparatorIsNotTakenForAnother) {
    CsvOptions third;
    third.columns[ColumnX] = "1";
    third.columns[ColumnY] = "3";
    // One cuts few records, or leaves the other in texts where that one leaves numbers.
    for (const char* text :
         {"1,5;0;2,5\n3,5;0;4,5\n", "X, mm;id;Y, mm\n1,5;7;2,5\n3,5;A;4,5\n",
          "X, mm;id;Y\n\"1,5\";7;\"2,5\"\n3,5;8;4,5\n", "X;mm,id,Y\n1.5,a,2.5\n3.5,b,4.5\n",
          "X\tid, nr; place\tY\n1,5\t\"a,b\"\t2,5\n3,5\t7\t4,5\n", "X, mm;id;Y\n1,5;a, b;2,5\n3,5;c, d;4,5\n",
          "X, mm\tid\tY\n1.5\ta, b\t2.5\n3.5\tc\t4.5\n"})
        EXPECT_EQ(Import(text, third).Rows(), "1.5 2.5|3.5 4.5|") << text;
    for (const char* text :
         {"X, mass;id;mass, Y\n1,5;7;2,5\n2,5;8;note;3,25\n3,5;9;4,75\n",
          "X, mm;id;Y, mm;\n1,5;7;2,5\n3,5;9;4,5\n", "X, mm;id;Y\n1,5;a, b;2,5\n3,5 t;c, d;4,5\n",
          "X,id,Y\n1,5;7;2,5\n3,5;7;4,5\n", "a (b, c)\tY, kg\n4732811,31\t467,2\t\n7275,4\t2580,49\n"})
        ExpectRefused(text, "may separate its columns; import with --separator", third);
}

TEST(ImportCsv, ColumnsByNameByNumberAndInOrder) {
    const std::string table = "id,a,SD_x,B,b,Exclude\n7,1,0.5,2,3,y\n8,4,0.6,5,6,\n";
    CsvOptions options;
    options.columns[ColumnX] = "A";
    options.columns[ColumnY] = "b";
    const Imported named = Import(table, options);
    EXPECT_EQ(named.Rows(), "1 3y|4 6|");
    EXPECT_EQ(named.Cell(ColumnSDX, 2), "0.6");
    EXPECT_EQ(
        named.outcome.summary,
        "2 rows; X is column 2 'a'; SD X is column 3 'SD_x'; Y is column 5 'b'; Exclude is column 6 "
        "'Exclude'; 2 columns are left out; separated by comma, decimal point; the first pair is X '1', Y "
        "'3'");
    options.columns[ColumnY] = "4";
    EXPECT_EQ(Import(table, options).Rows(), "1 2y|4 5|");
    for (const auto& [y, part] : {std::pair{"c", "--y 'c': no column has that name; columns: 1 'id', 2 'a'"},
                                  {"7", "--y '7': the table has 6 columns"},
                                  {"0", "the table has 6 columns"},
                                  {"a", "column 2 'a' cannot be both X and Y"}}) {
        options.columns[ColumnY] = y;
        ExpectRefused(table, part, options);
    }
    ExpectRefused(table, "t.csv:1: which column is X? Import with --x");
    ExpectRefused("X,x,Y\n1,2,3\n", "several columns have the name X; import with --x and the number of one");
    ExpectRefused("X,b\n1,2\n3,4\n", "which column is Y?");
    EXPECT_EQ(Import("Observed (mm);n;pred\n1;9;2\n3;9;4\n").Rows(), "2 1|4 3|");
    ExpectRefused("X,Y,obs\n1,2,3\n", "several columns have the name Y");
    ExpectRefused("1,2,3\n4,5,6\n", "which column is X?");
    EXPECT_TRUE(Import("1\t2\n3\t4\n").outcome.summary.starts_with("2 rows, no header; X is column 1; Y is"));
    // Words in the names of two columns tell which is which, or that it is not to be told.
    for (const char* names :
         {"Y, kg;X, mm", "Y [kg];X [mm]", "observations;predictions", "obs.;pred.", "y_true;y_pred",
          "observed_kg;predicted_kg", "Measured;Simulated", "kgObs;kgSim", "yobs;ymodel", "QOBS;QSIM",
          "LAIobs;LAIpred", "LAIObserved;LAIPredicted", "\u0394obs;\u0394mod", "y;yhat", "reference;fitted"})
        EXPECT_EQ(Import(std::string(names) + "\n2;1\n4;3\n").Rows(), "1 2|3 4|") << names;
    for (const char* names :
         {"observed;mass", "model 1;model 2", "X (observed);Y (predicted)", "x (obs);b",
          "predicted - observed;mass", "SD X;Y", "mpg;wt", "simple;observed", "obs;hatch", "Estonia;obs",
          "Fitness;obs", "observer;pred", "Predicted (SD);Observed (SD)", "SDobs;pred", "Obs (n);pred"})
        ExpectRefused(std::string(names) + "\n1;2\n3;4\n", "mport with --");
    // A column that is left may be meant, unless it holds no numbers or says only how good the values are.
    for (const char* names : {"x;y;z_obs", "X;Y;yhat", "Obs;Pred;Measured", "Obs;pred;Yield"})
        ExpectRefused(std::string(names) + "\n1;2;3\n2;4;5\n", "mport with --");
    EXPECT_EQ(Import("Pred;Obs;Model;Pred (SD)\n1;2;A;3\n3;4;B;5\n").Rows(), "1 2|3 4|");
    EXPECT_EQ(Import("X?,Y,Excluded?\n1,2,y\n3,4,\n").Rows(), "1 2y|3 4|");
    // A first line of both kinds may be either.
    for (const char* first : {"site,2019,2020", "1'234,2'345", "<0.1,<0.2", "\u22121.5,\u22122.5", "2m,10m",
                              "inf,inf", "n/a,Null"})
        ExpectRefused(std::string(first) + "\nA,1,2\nB,3,4\n", "--header yes or --header no");
    CsvOptions numbered;
    numbered.columns[ColumnX] = "2";
    numbered.columns[ColumnY] = "3";
    numbered.header = true;
    EXPECT_EQ(Import("site,2019,2020\nA,1,2\nB,3,4\n", numbered).Rows(), "1 2|3 4|");
    numbered.header = false;
    EXPECT_EQ(Import("site,2019,2020\nA,1,2\nB,3,4\n", numbered).Rows(), "2019 2020|1 2|3 4|");
}

TEST(ImportCsv, ADecimalMarkIsNeverGuessed) {
    // A quoted number with a comma in a comma-separated file.
    const std::string quoted = "X,Y\n\"1,5\",2\n3,\"4,25\"\n";
    ExpectRefused(
        quoted,
        "t.csv:2: column 1 'X': '1,5' may be decimal or have a thousands separator; if its comma "
        "is decimal, import with --decimal ,; if it separates thousands, remove it from the file; the "
        "line is '\"1,5\",2'");
    ExpectRefused("X,Y\n\"1,234\",500.5\n999.5,7.5\n", "'1,234' has a thousands separator, since in line 2");
    ExpectRefused("X,Y\n\"1,5\",500.5\n", "only one of the two can be decimal");
    EXPECT_EQ(Import(quoted, Decimal(',')).Rows(), "1.5 2|3 4.25|");
    EXPECT_EQ(Import(quoted, Decimal('.')).Rows(), "1,5 2|3 4,25|");
    EXPECT_TRUE(Import(quoted, Decimal('.')).Warns("t.csv:2: column 1 'X': '1,5' is no number"));
    // Commas without quotes in one: more fields than columns.
    ExpectRefused("X,Y\n1,5,2,5\n", "t.csv:2: the row has more than the 2 columns");
    ExpectRefused("X,Y\n3,4\n1,5,\n", "t.csv:3: the row has more than the 2 columns");
    ExpectRefused("1,5,2,5\n2,5,3,5\n", "which column is X?");
    for (const char* names : {"Pred, kg,Obs, kg", "Pred, kg,Obs, g", "Pred,kg,Obs,kg"})
        ExpectRefused(std::string(names) + "\n1,5,2,5\n3,25,4,75\n", "t.csv:1: names here may hold commas");
    EXPECT_EQ(Import("Pred,SD,Obs,SD\n1.5,1,2,1\n3,1,4,1\n").Rows(), "1.5 2|3 4|");
    EXPECT_EQ(Import("id, Obs, Pred\n1,2,1\n2,4,3\n").Rows(), "1 2|3 4|");
    ExpectRefused("Pred, kg,Obs, kg,Day\n1.5,2.5,9\n3.5,4.5,9\n", "t.csv:1: no row has as many fields");
    ExpectRefused("Obs,Pred\n1,2,\n3,4,\n", "or end the first line with one, too");
    ExpectRefused("\"obs\",\"pred\"\n\"1\",2,3\n\"2\",4,5\n", "if they begin with names");
    ExpectRefused("X,Y\n1,5\n2,6\n", "--decimal , does not fit", Decimal(','));
    // Three digits after a mark, and nothing that settles it.
    ExpectRefused("X;Y\n1;2\n1.234;5\n", "t.csv:3: column 1 'X': '1.234' and all its like may be decimal");
    ExpectRefused("X\tY\n1,234\t5\n", "import with --decimal ,");
    EXPECT_EQ(Import("X;Y\n1.234;5\n6;7\n", Decimal('.')).Rows(), "1.234 5|6 7|");
    EXPECT_EQ(Import("X;Y\n1,234;5\n6;7\n", Decimal(',')).Rows(), "1.234 5|6 7|");
    EXPECT_EQ(Import("X;Y\n1,234;5\n6,7;8\n").Rows(), "1.234 5|6.7 8|");
    EXPECT_EQ(Import("X;Y\n1.234;5\n0.125;8\n").Rows(), "1.234 5|0.125 8|");
    EXPECT_EQ(Import("X,Y\n1.234,5.678\n6.789,8.901\n").Rows(), "1.234 5.678|6.789 8.901|");
    // Thousands separators and two marks in one file.
    for (const char* groups :
         {"X;Y\n1.234,5;2\n", "X;Y\n1,234.5;2\n", "X;Y\n1.234.567;2\n", "X,Y\n\"1,234.5\",2\n"}) {
        ExpectRefused(groups, "has thousands separators");
        ExpectRefused(groups, "has thousands separators", Decimal(','));
    }
    ExpectRefused("X;Y\n1;2.5\n3,5;4\n",
                  "t.csv:3: column 1 'X': '3,5' has a comma, and in line 2 column 2 'Y': '2.5'");
    ExpectRefused("X;Y\n1;2.5\n3,5;4\n", "'2.5' has a point, though --decimal ,", Decimal(','));
    // Dates and the like are text under either mark.
    const Imported dates = Import("X;Y\n12.05.2020;1,5\n2020-05-12;2,5\n1,5,2;3,5\n1e999;4,5\n");
    EXPECT_EQ(dates.Rows(), "12.05.2020 1.5|2020-05-12 2.5|1,5,2 3.5|1e999 4.5|");
    EXPECT_EQ(dates.outcome.warnings.size(), 5U);
    EXPECT_TRUE(dates.Warns("no row has a number in X"));
    ExpectRefused("a;b,1\nc;d,2\n", "comma or semicolon may separate its columns; import with --separator");
    ExpectRefused("a\tb;c\nd\te;f\n",
                  "t.csv:1: semicolon or tab may separate its columns; import with --separator and one "
                  "of these words; the line is 'a<tab>b;c'");
    ExpectRefused("1 2\n3 4\n", "neither comma nor semicolon nor tab");
}

TEST(FormOf, TellsDecimalsFromGroups) {
    using enum NumberForm;
    for (const auto& [form, texts] : std::initializer_list<std::pair<NumberForm, std::vector<const char*>>>{
             {Whole, {"0", "-12", "+1234567", "1e5", "1D-3"}},
             {Point, {"1.5", ".5", "5.", "0.125", "01.234", "1234.567", "1.2345", "1.234e3", "-1.23"}},
             {PointOrGroups, {"1.234", "-123.456", "+12.000"}},
             {Comma, {"1,5", ",5", "0,125", "1,234E+05"}},
             {CommaOrGroups, {"999,999"}},
             {DigitGroups, {"1.234.567", "1,234,567", "1.234,5", "12,345.678", "1.234.567,89"}},
             {None,
              {"", "-", ".", ",", "1e", "e5", "1.2.3", "1,2.3", "1.234,567,890", "1 234", "0x1", "1e400",
               "--1", "12.05.2020", "1,234,56", "nan", "inf"}}})
        for (const char* text : texts)
            EXPECT_EQ(FormOf(text), form) << text;
}

TEST(ImportCsv, WhatIsMissingOrNoNumberIsEmptyOrReported) {
    const Imported it = Import(
        "X,Y,SDX,Exclude\n1,NA,nan,0\nn/a,2,\"\",x\n3\n,\"NaN\", ,NA\n\"two\nlines\",4,5,\n6,7,-inf,n\n");
    EXPECT_EQ(it.Rows(), "1 0|n/a 2x|3 | |two\nlines 4|6 7n|");
    EXPECT_EQ(it.Cell(ColumnSDX, 1) + it.Cell(ColumnSDX, 4), "");
    EXPECT_EQ(it.outcome.warnings.size(), 7U);
    for (const char* warning :
         {"t.csv:3: column 1 'X': 'n/a' is no number", "t.csv:6: column 1 'X': 'two?lines' is no number",
          "t.csv:8: column 3 'SDX': '-inf' is no number", "t.csv:4: X without Y",
          "t.csv:4: the row has 1 of 4 columns", "t.csv:2: column 4 'Exclude' is '0'; a row is excluded by",
          "t.csv:3: column 4 'Exclude' is 'x'"})
        EXPECT_TRUE(it.Warns(warning)) << warning;

    std::string many = "X,Y\n";
    for (int row = 0; row < 1234; ++row)
        many += "bad,1\n";
    EXPECT_EQ(Import(many).outcome.warnings.size(), 12U);
    EXPECT_TRUE(Import(many).Warns("t.csv: 1234 cells are no numbers in all; corvane import reports each"));
    CsvOptions every;
    every.everyRemark = true;
    EXPECT_EQ(Import(many, every).outcome.warnings.size(), 1235U);
    ExpectRefused("X,Y\n,1\nNA,2\n", "no row has a value in X");
    EXPECT_EQ(Import("X,Y,Rank X\n1,2,.\n3,4,1\n").outcome.warnings.size(), 0U);
    // A line of units is no row, but one text is a cell.
    ExpectRefused("X,Y\nmm,kg\n1,2\n3,4\n", "t.csv:2: X and Y are texts here and numbers below");
    EXPECT_EQ(Import("X,Y\nmm,1\n3,4\n").Rows(), "mm 1|3 4|");
    // Nor is a title a header.
    ExpectRefused("X,Y\nObs,Pred\n1,2\n3,4\n",
                  "t.csv:2: X and Y are texts here and numbers below; if this is the");
    for (const char* title : {"# Run 3", "Run 3, 2020", "Run; 3, 2020", "Obs. of; 2020"})
        ExpectRefused(std::string(title) + "\nObs;Pred;n\n1;2;9\n3;4;9\n",
                      "is a title or a comment, remove it");
}

TEST(ImportCsv, AnExportedTableComesBackCellForCell) {
    Dataset dataset;
    int column = 0;
    std::int32_t row = 2;
    for (const char* text : {"1.5", " 2 ", "1,5", "1.234,5", "NA", "nan", " ", "say \"so\"", "two\r\nlines\r",
                             "χ²;\t,", "1e5", "\xEF\xBB\xBFmark", "12.05.2020", "0", "Y", "-.5", "'"}) {
        column = column % LastColumn + 1;
        dataset.cells.Set(column, row++, std::string_view(text));
    }
    dataset.cells.Set(ColumnRankX, 1, 0.1);
    dataset.cells.Set(ColumnRankY, 1, 1e-30);
    const std::string text = CsvText(dataset.cells);
    const Imported imported = Import(text);
    ASSERT_TRUE(imported.outcome.done) << imported.Rows();
    ASSERT_EQ(imported.dataset.cells.RowCount(), dataset.cells.RowCount());
    for (row = 1; row <= dataset.cells.RowCount(); ++row)
        for (column = ColumnX; column <= LastColumn; ++column)
            EXPECT_EQ(imported.Cell(column, row), CellText(dataset.cells.At(column, row)))
                << row << " " << column;
    // Saved again with decimal commas it has no point left.
    const std::string saved = std::string(ExportedHeader) + "\n\"1,5\",,\"2,5\",,,,\n3,,\"4,5\",,,,\n";
    ExpectRefused(saved,
                  "t.csv:2: column 1 'X': '1,5' has a comma; if it is decimal, import with --decimal ,");
    EXPECT_EQ(Import(saved, Decimal(',')).Rows(), "1.5 2.5|3 4.5|");
    EXPECT_EQ(Import(saved, Decimal('.')).Rows(), "1,5 2,5|3 4,5|");
    EXPECT_NE(text.find("\r\n,,,,0.1,1E-30,\r\n1.5,,,,,,\r\n,\" 2 \",,,,,\r\n"), std::string::npos) << text;
}

TEST(ImportCsv, BadInputIsRefusedInItsLine) {
    ExpectRefused("", "t.csv: the file is empty");
    ExpectRefused("\n \n", "t.csv: the file is empty");
    ExpectRefused("X,Y\n", "too few rows: 0");
    ExpectRefused("X,Y\n1,2\n3,\"4\n5,6\n",
                  "t.csv:3: a quote opens and is never closed; the line is '3,\"4'");
    ExpectRefused("X,Y\n1,\"2\"3\n", "t.csv:2: there is text between a closing quote");
    ExpectRefused("sep=,\nX,Y\n\"1\r\"\"\r\n\n\",2\n3,4,5\n", "t.csv:7: the row has more");
    ExpectRefused("sep=|\nX|Y\n1|2\n", "t.csv:1: its columns are separated by '|'");
    for (const std::string& wide : {std::string("\xFF\xFEX\0,\0", 6), std::string("X\0,\0", 4)})
        ExpectRefused(wide, "UTF-16");
    const std::string many(200'000, ','), quotes(5'000'000, '"');
    std::string wide;
    for (int line = 0; line < 20; ++line)
        wide += many + "\n";
    ExpectRefused(wide, "which column is X?");
    ExpectRefused("X,Y\n" + quotes + "\n", "too few rows: 1");
    ExpectRefused("X,Y\n1,2\n\"" + quotes, "t.csv:3: a quote opens");
    ExpectRefused("X,Y\n1" + std::string(5'000'000, ' ') + ",2,3\n", "more than the 2 columns");
    const Imported giant = Import("X,Y\n1,2\n3," + std::string(5'000'000, '9') + "\n");
    EXPECT_TRUE(giant.Warns("'9999999999999999999999999999999999999999...' is no number"));
}

} // namespace
} // namespace corvane
