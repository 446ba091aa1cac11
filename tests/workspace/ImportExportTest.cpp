#include "platform/Files.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

namespace skyvert {
namespace {

constexpr auto kRefusal = "The file format is incompatible with the data format (i.e. the data "
                          "contain spaces)!";
constexpr auto kColons = "HH:MM:SS\t+DD:MM:SS\tN\t0\t0";
constexpr auto kMarks = "DDD\xC2\xB0MM'SS\"\t+DD\xC2\xB0MM'SS\"\tN\t0\t1";

class ImportExportTest : public testing::Test {
protected:
    ImportExportTest() { program.settle(); }

    /// Imports a file of these bytes and gives the input cells of the rows that it made.
    std::vector<Row> import(std::string_view dialect, std::string_view bytes) {
        main.list.DeleteAllRows();
        writeWholeFile(folder / "in.txt", bytes);
        program.machine.dialogs.file = folder / "in.txt";
        main.fileFormat.setValue(dialect);
        main.FileImportBtn.press();
        std::vector<Row> rows;
        for (std::int64_t row = 0; row < main.list.RowCount(); ++row)
            rows.push_back(
                {std::string(main.list.Cell(row, 0)), std::string(main.list.Cell(row, 1))});
        return rows;
    }

    std::string exported(std::string_view dialect) {
        program.machine.dialogs.file = folder / "out.txt";
        main.ListFormat.setValue(dialect);
        main.ExportListBtn.press();
        return readWholeFile(folder / "out.txt").value_or("no file");
    }

    TemporaryFolder folder;
    TestWindow program{folder};
    MainWindow& main = *program.window;
};

TEST_F(ImportExportTest, EveryLineBecomesARow) {
    const Row first{"01:02:03", "-04:05:06"};
    const Row second{"10:00:00", "+20:00:00"};
    const Row zero{"00:00:00", "+00:00:00"};

    const struct {
        const char* what;
        const char* dialect;
        const char* bytes;
        std::vector<Row> rows;
    } cases[] = {
        {"tabs", "Tab-separated", "1:2:3\t-4:5:6\tM 1\r\n10\t20", {first, second}},
        {"spaces", "Space-separated", "1:2:3  -4:5:6 x\n10 20\n", {first, second}},
        {"three spaces", "Space-separated", "10   20\n", {{second[0], zero[1]}}},
        {"commas",
         "Comma-separated",
         "1:2:3 , \"-4:5:6\",x\n10,20\n10,20\n",
         {first, second, second}},
        {"bad lines",
         "Tab-separated",
         "RA\tDec\n\t\n10\t20\n1:2:3",
         {zero, zero, second, {first[0], zero[1]}}},
        {"no rows", "Tab-separated", "\n   \n\r\n", {}},
        {"no rows of commas", "Comma-separated", "\n  \n", {}},
        {"no dialect", "none", "1\t2\n3,4\n", {}},
        {"look-alikes",
         "Tab-separated",
         "1:2:3\t\xE2\x88\x92\xC2\xA0"
         "4:5:6\n",
         {first}},
    };

    program.setFormats(kColons, kColons);
    for (const auto& [what, dialect, bytes, rows] : cases)
        EXPECT_EQ(import(dialect, bytes), rows) << what;
    EXPECT_TRUE(program.machine.dialogs.messages.empty());
}

TEST_F(ImportExportTest, AnImportAddsToTheListAndSelectsItsLastRow) {
    program.setFormats(kColons, kColons);
    import("Tab-separated", "1\t1\n2\t2\n");
    main.FileImportBtn.press();
    EXPECT_EQ(main.list.RowCount(), 4);
    EXPECT_EQ(main.list.listIndex(), 3);
    EXPECT_TRUE(main.ClearListButton.enabled());
}

TEST_F(ImportExportTest, SurvivesFilesThatHoldNoPositions) {
    using namespace std::string_literals;
    const std::string files[] = {std::string(100'000, '\0'),
                                 "\xFF\xFE"
                                 "1\0\t\0"
                                 "2\0\n\0\0\xD8"s,
                                 "\"\n\"\"\"\n'\"'\t\"\n",
                                 std::string(10'000'000, '1') + "\t2",
                                 std::string(1'000'000, '"'),
                                 std::string(1'000'000, ','),
                                 "\xFF\xFF\xC0\x80\xF5\x80\x80\x80\t\xED\xBF\xBF"};
    for (const char* format : {kColons, kMarks, "HHMMSS\t+DDMMSS\tY\t8\t8", "HH MM\t+DD MM"}) {
        program.setFormats(format, kMarks);
        for (const std::string& bytes : files) {
            for (const char* dialect : {"Tab-separated", "Comma-separated", "Space-separated"})
                import(dialect, bytes);
        }
    }
}

TEST_F(ImportExportTest, SpacesInTheDataAreRefusedBeforeAnyDialog) {
    auto& dialogs = program.machine.dialogs;
    dialogs.asked.clear();
    program.setFormats("HH MM\t+DD:MM", "HH:MM\t+DD MM");
    EXPECT_TRUE(import("Space-separated", "1 2\n").empty());
    EXPECT_EQ(exported("Space-separated"), "no file");
    EXPECT_EQ(dialogs.messages, (Row{kRefusal, kRefusal}));
    EXPECT_TRUE(dialogs.asked.empty());
    exported("Tab-separated");
    import("Tab-separated", "");
    EXPECT_EQ(dialogs.asked, (Row{"save text/plain list.txt", "open special/any"}));
}

TEST_F(ImportExportTest, TheListIsWrittenAsItStandsInEveryDialect) {
    program.setFormats(kColons, kMarks);
    main.ConvertCoordinates("12", "-45");
    const std::string heads = "Input RA (2000.0)\tInput Dec (2000.0)\tOutput RA (2000.0)\t"
                              "Output Dec (2000.0)\n";

    const struct {
        const char* dialect;
        std::string text;
    } cases[] = {
        {"Tab-separated", heads + "12:00:00\t-45:00:00\t180\xC2\xB0"
                                  "00'00\"\t-44\xC2\xB0"
                                  "59'60.0\"\n"},
        {"Space-separated",
         "Input RA (2000.0) Input Dec (2000.0) Output RA (2000.0) Output Dec (2000.0)\n"
         "12:00:00 -45:00:00 180\xC2\xB0"
         "00'00\" -44\xC2\xB0"
         "59'60.0\"\n"},
        {"Comma-separated",
         "Input RA (2000.0),Input Dec (2000.0),Output RA (2000.0),Output Dec (2000.0)\n"
         "12:00:00,-45:00:00,\"180\xC2\xB0"
         "00'00\"\"\",\"-44\xC2\xB0"
         "59'60.0\"\"\"\n"},
        {"none", ""},
    };

    for (const auto& [dialect, text] : cases)
        EXPECT_EQ(exported(dialect), text);
    main.list.DeleteAllRows();
    EXPECT_EQ(exported("Tab-separated"), heads);
}

TEST_F(ImportExportTest, AnExportReadsBack) {
    program.setFormats("DDD\xC2\xB0MM'SS\"\t+DD\xC2\xB0MM'SS\"\tN\t1\t2", kColons);
    main.ConvertCoordinates("180\xC2\xB0"
                            "30'15.2\"",
                            "-0\xC2\xB0"
                            "0'0.25\"");
    const Row input{program.row(0)[0], program.row(0)[1]};
    EXPECT_EQ(input, (Row{"180\xC2\xB0"
                          "30'15.2\"",
                          "-00\xC2\xB0"
                          "00'00.25\""}));
    for (const char* dialect : {"Tab-separated", "Comma-separated", "Space-separated"})
        EXPECT_EQ(import(dialect, exported(dialect)).back(), input) << dialect;
}

TEST_F(ImportExportTest, ACancelledDialogChangesNothing) {
    program.machine.dialogs.file.reset();
    main.FileImportBtn.press();
    main.ExportListBtn.press();
    EXPECT_EQ(main.list.RowCount(), 0);
    EXPECT_EQ(program.machine.dialogs.asked.size(), 2U);
}

TEST_F(ImportExportTest, FailuresNameTheFileAndKeepWhatThereIs) {
    main.ConvertCoordinates("1", "1");
    program.machine.dialogs.file = folder / "none/list.txt";
    EXPECT_THROW(main.FileImportBtn.press(), FileError);
    EXPECT_THROW(main.ExportListBtn.press(), FileError);
    program.machine.dialogs.file = folder.path();
    EXPECT_THROW(main.FileImportBtn.press(), FileError);
    EXPECT_EQ(main.list.RowCount(), 1);
}

} // namespace
} // namespace skyvert
