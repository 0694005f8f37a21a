#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <platen/platform/afx.h>

#include "tests/support/windows/own_folder.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

/// A file's name that nothing has, and the file removed in the end.
struct OutputFile {
    std::string path = OwnFolder("platen print").concat(".pdf");
    ~OutputFile() { std::filesystem::remove(path); }

    [[nodiscard]] std::string Bytes() const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

/// A context of the printer that makes PDF files, as its dialog gives it.
HDC PdfContext(const std::string& path) {
    CPrintDialog dialog(FALSE);
    const std::size_t size = sizeof(DEVNAMES) + 5 + path.size() + 1;
    dialog.m_pd.hDevNames = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    auto* const names = static_cast<DEVNAMES*>(GlobalLock(dialog.m_pd.hDevNames));
    auto* const text = reinterpret_cast<char*>(names);
    names->wDriverOffset = sizeof(DEVNAMES);
    names->wDeviceOffset = sizeof(DEVNAMES) + 1;
    names->wOutputOffset = sizeof(DEVNAMES) + 5;
    std::strcpy(text + names->wDeviceOffset, "PDF");
    std::strcpy(text + names->wOutputOffset, path.c_str());
    GlobalUnlock(dialog.m_pd.hDevNames);
    Person person({Person::SeesOther(nullptr), Person::Answers(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    GlobalFree(dialog.m_pd.hDevNames);
    GlobalFree(dialog.m_pd.hDevMode);
    return dialog.GetPrinterDC();
}

int CountOf(const std::string& text, const std::string& word) {
    int count = 0;
    for (auto place = text.find(word); place != std::string::npos;
         place = text.find(word, place + 1)) {
        ++count;
    }
    return count;
}

TEST(Printing, PagesAreMissingFromTheDocument) {
    OutputFile output;
    CDC printer;
    ASSERT_TRUE(printer.Attach(PdfContext(output.path)));
    const int perInch = printer.GetDeviceCaps(LOGPIXELSY);
    EXPECT_GT(perInch, 200);
    EXPECT_NEAR(printer.GetDeviceCaps(HORZSIZE) * perInch / 25.4, printer.GetDeviceCaps(HORZRES),
                perInch);
    EXPECT_GE(printer.GetDeviceCaps(PHYSICALWIDTH), printer.GetDeviceCaps(HORZRES));

    printer.SetMapMode(MM_TWIPS);
    LOGFONT record = {};
    record.lfHeight = -240;
    std::strcpy(record.lfFaceName, "Arial");
    CFont font;
    font.CreateFontIndirect(&record);
    printer.SelectObject(&font);
    TEXTMETRIC metrics = {};
    printer.GetTextMetrics(&metrics);
    EXPECT_NEAR(metrics.tmHeight - metrics.tmInternalLeading, 240, 20);

    DOCINFO document = {};
    document.cbSize = sizeof(document);
    document.lpszDocName = "Two pages";
    EXPECT_EQ(printer.StartPage(), SP_ERROR) << "a page before the document";
    ASSERT_GT(printer.StartDoc(&document), 0);
    EXPECT_EQ(printer.StartDoc(&document), SP_ERROR);
    for (int page = 0; page < 2; ++page) {
        EXPECT_GT(printer.StartPage(), 0);
        EXPECT_TRUE(printer.TextOut(1440, -1440, "Text", 4));
        EXPECT_GT(printer.EndPage(), 0);
    }
    EXPECT_GT(printer.EndDoc(), 0);
    EXPECT_EQ(printer.EndDoc(), SP_ERROR);
    const std::string bytes = output.Bytes();
    EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
    EXPECT_EQ(CountOf(bytes, "/Type /Page\n"), 2);
    EXPECT_GE(CountOf(bytes, "/Type /Font\n"), 1) << "text is not text";
}

TEST(Printing, AnAbortedDocumentLeavesAFile) {
    OutputFile output;
    CDC printer;
    ASSERT_TRUE(printer.Attach(PdfContext(output.path)));
    DOCINFO document = {};
    document.cbSize = sizeof(document);
    ASSERT_GT(printer.StartDoc(&document), 0);
    EXPECT_GT(printer.StartPage(), 0);
    EXPECT_GT(printer.AbortDoc(), 0);
    EXPECT_FALSE(std::filesystem::exists(output.path));
    ASSERT_GT(printer.StartDoc(&document), 0);
    EXPECT_GT(printer.EndDoc(), 0);
    EXPECT_FALSE(std::filesystem::exists(output.path)) << "a document without pages is printed";
    document.lpszOutput = "/nonexistent/file.pdf";
    EXPECT_EQ(printer.StartDoc(&document), SP_ERROR);
}

}  // namespace
