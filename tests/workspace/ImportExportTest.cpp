#include "platform/Files.h"
#include "platform/Text.h"
#include "support/CountingAllocator.h"
#include "support/Table.h"
#include "support/TestWindow.h"

namespace skyvert::import_export_test {

constexpr auto kColons = "HH:MM:SS\t+DD:MM:SS\tN\t0\t0";
constexpr auto kMarks = "DDD\u00B0MM'SS\"\t+DD\u00B0MM'SS\"\tN\t0\t1";
constexpr auto kDialects = {"Tab-separated", "Comma-separated", "Space-separated"};

struct ImportExportTest : WindowTest {
    ImportExportTest() { program.setFormats(kColons, kMarks); }

    /// Imports a file of these bytes. Returns the input cells of its rows.
    std::string import(std::string_view dialect, std::string_view bytes) {
        main.list.DeleteAllRows();
        writeWholeFile(folder / "in.txt", bytes);
        dialogs.file = folder / "in.txt";
        main.fileFormat.setValue(dialect);
        main.FileImportBtn.press();
        return program.rows(2);
    }

    std::string exported(std::string_view dialect) {
        dialogs.file = folder / "out.txt";
        main.ListFormat.setValue(dialect);
        main.ExportListBtn.press();
        return readWholeFile(folder / "out.txt").value_or("no file");
    }

    ScriptedDialogs& dialogs = program.machine.dialogs;
};

TEST(DelimitedText, ReadsEveryDialect) {
    LineSplitter splitter;
    for (const auto& [dialect, line, expected] : table<3>("delimited_lines")) {
        std::string fields;
        for (const std::string_view field : splitter.split(line, *dialectNamed(dialect)))
            fields.append("[").append(field).append("]");
        EXPECT_EQ(fields, expected) << line;
    }
}

TEST_F(ImportExportTest, LinesWithFieldsBecomeRows) {
    for (const auto& [dialect, bytes, rows] : table<3>("imported_files"))
        EXPECT_EQ(import(dialect, bytes), rows) << bytes;
    main.FileImportBtn.press();
    EXPECT_EQ(program.rows(2), "01:02:03|-04:05:06|;01:02:03|-04:05:06|;");
    EXPECT_EQ(main.list.listIndex(), 1);
    EXPECT_EQ(dialogs.messages, "");
}

TEST_F(ImportExportTest, SpacesInTheDataAreRefusedBeforeAnyDialog) {
    program.setFormats("HH MM\t+DD:MM", "HH:MM\t+DD:MM");
    EXPECT_EQ(import("Space-separated", "1 2\n"), "");
    program.setFormats("HH:MM\t+DD:MM", "HH:MM\t+DD MM");
    EXPECT_EQ(exported("Space-separated"), "no file");
    const std::string refusal = "The file format is incompatible with the data format (i.e. the "
                                "data contain spaces)!|";
    EXPECT_EQ(dialogs.messages, refusal + refusal);
    EXPECT_EQ(dialogs.asked, "");
    exported("Tab-separated");
    EXPECT_EQ(dialogs.start, folder.path());
    dialogs.start.clear();
    import("Tab-separated", "");
    EXPECT_EQ(dialogs.start, folder.path());
    EXPECT_EQ(dialogs.asked, "save text/plain list.txt|open special/any|");
}

TEST_F(ImportExportTest, TheListIsWrittenInEveryDialect) {
    main.ConvertCoordinates("12", "-45");
    const std::string heads =
        "Input RA (2000.0)\tInput Dec (2000.0)\tOutput RA (2000.0)\tOutput Dec (2000.0)\n";
    EXPECT_EQ(exported("Tab-separated"),
              heads + "12:00:00\t-45:00:00\t180\u00B000'00\"\t-44\u00B059'60.0\"\n");
    EXPECT_EQ(exported("Comma-separated"),
              ReplaceAll(heads, "\t", ",") +
                  "12:00:00,-45:00:00,\"180\u00B000'00\"\"\",\"-44\u00B059'60.0\"\"\"\n");
    EXPECT_EQ(exported("Space-separated"),
              ReplaceAll(heads, "\t", " ") +
                  "12:00:00 -45:00:00 180\u00B000'00\" -44\u00B059'60.0\"\n");
    EXPECT_EQ(exported("none"), "");
}

TEST_F(ImportExportTest, ACancelledDialogOrAFailureChangesNothing) {
    main.ConvertCoordinates("1", "1");
    main.FileImportBtn.press();
    main.ExportListBtn.press();
    EXPECT_EQ(dialogs.asked, "open special/any|save text/plain list.txt|");
    dialogs.file = folder / "none/list.txt";
    EXPECT_THROW(main.FileImportBtn.press(), FileError);
    EXPECT_THROW(main.ExportListBtn.press(), FileError);
    EXPECT_EQ(dialogs.start, "");
    EXPECT_EQ(main.list.RowCount(), 1);
    dispatch(dialogs, [] { throw std::bad_alloc(); });
    EXPECT_EQ(dialogs.messages, "There is not enough memory to finish this.|");
}

TEST_F(ImportExportTest, ImportAndExportAllocatePerBlockOfRowsAndNotPerRow) {
    for (const char* dialect : kDialects) {
        std::string bytes;
        const std::size_t separator = std::string_view("T\tC,S ").find(dialect[0]) + 1;
        for (int row = 0; row < 20'000; ++row)
            bytes.append("12:34:56.78").append(1, "T\tC,S "[separator]).append("-01:02:03.4\n");
        import(dialect, bytes);
        const std::size_t before = allocationCount();
        main.FileImportBtn.press();
        exported(dialect);
        EXPECT_LT(allocationCount() - before, 200U) << dialect;
    }
}

TEST_F(ImportExportTest, ARowOfOneShapeTakesLittleMoreMemoryThanItsText) {
    const std::size_t before = allocatedBytes();
    for (int row = 0; row < 50'000; ++row)
        main.ConvertCoordinates("1", "2"); // 41 bytes of text
    EXPECT_LT(allocatedBytes() - before, 48U * 50'000U);
}

TEST_F(ImportExportTest, LongWorkReportsItsProgress) {
    std::string& log = program.machine.progress.log;
    log.clear();
    import("Tab-separated", ReplaceAll(std::string(9999, 'x'), "x", "1\t2\n"));
    exported("Tab-separated");
    EXPECT_EQ(log, "Importing|4096 100%|8192 100%|end|Exporting|4096 41%|8192 82%|end|");
    log.clear();
    // A long line reports twice: after the part that is read and after the rest.
    import("Tab-separated", "1\t2\t" + std::string(3'000'000, 'x') + "\n3\t4\n");
    EXPECT_EQ(log, "Importing|1 70%|1 100%|end|");
}

TEST_F(ImportExportTest, StoppedWorkKeepsTheRowsReadAndTheOldFile) {
    program.machine.progress.stopAt = 4096;
    import("Tab-separated", ReplaceAll(std::string(9999, 'x'), "x", "1\t2\n"));
    EXPECT_EQ(main.list.RowCount(), 4096);
    EXPECT_EQ(program.machine.progress.stoppedBy, StoppedBy::User);
    writeWholeFile(folder / "out.txt", "old");
    EXPECT_EQ(exported("Tab-separated"), "old");
}

TEST_F(ImportExportTest, AClosedWindowIgnoresTheAnswerOfADialog) {
    dialogs.file = folder / "list.txt";
    main.close();
    main.FileImportBtn.press();
    main.ExportListBtn.press();
    EXPECT_EQ(dialogs.messages, "");
    EXPECT_EQ(readWholeFile(*dialogs.file), std::nullopt);
}

} // namespace skyvert::import_export_test
