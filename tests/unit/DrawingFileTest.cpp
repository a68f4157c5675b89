// SPDX-License-Identifier: Apache-2.0
// Drawings read with GDAL's DGN driver: a drawing the sample batch program
// wrote comes back element by element; anything else is refused in one
// sentence that names the file.
#include "platform/GdalDrawingReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace tw {
namespace {

namespace fs = std::filesystem;
using drawing::DgnElement;

std::string readAll(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void writeAll(const fs::path& p, const std::string& bytes) { std::ofstream(p, std::ios::binary) << bytes; }

class DrawingFile : public ::testing::Test {
  protected:
    fs::path dir = fs::temp_directory_path() /
                   (std::string("tarnwick-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    void SetUp() override {
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }

    // A drawing written by the sample batch program from a script of ours.
    fs::path drawing() {
        writeAll(dir / "se.sif", "* A SCRIPT\r\n"
                                 "SYMBOLOGY 1 1 2 0\r\nSHAPE 4 0 0 10 0 10 3 0 3\r\n"
                                 "SYMBOLOGY 2 98 0 7\r\nLINE 5 3 5 8\r\nARC 5 0 1 180 180\r\nCIRCLE 2 -3 1\r\n"
                                 "SYMBOLOGY 10 0 0 0\r\nTEXT 1 -6 0.5 90 BENT \"2\"\r\n");
        const std::string command = std::string(TW_PROGRAM_DIR) + "/tarnwick-dgnbatch " + (dir / "se.sif").string();
        EXPECT_EQ(std::system(command.c_str()), 0);
        return dir / "se.dgn";
    }

    // Refused: false, and one sentence naming the file.
    std::string refused(const fs::path& p) {
        std::vector<DgnElement> elements;
        std::string error;
        EXPECT_FALSE(GdalDrawingReader(TW_PROGRAM_DIR).read(p.string(), elements, error));
        EXPECT_TRUE(elements.empty());
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        EXPECT_NE(error.find(p.string()), std::string::npos) << error;
        return error;
    }
};

TEST_F(DrawingFile, EveryElementComesBackWithItsSymbology) {
    std::vector<DgnElement> elements;
    std::string error;
    ASSERT_TRUE(GdalDrawingReader(TW_PROGRAM_DIR).read(drawing().string(), elements, error)) << error;
    ASSERT_EQ(elements.size(), 5u);
    const DgnElement& cap = elements[0];
    EXPECT_EQ(cap.kind, DgnElement::Kind::Shape);
    EXPECT_TRUE(cap.closed);
    EXPECT_EQ(cap.level, 1);
    EXPECT_EQ(cap.colorIndex, 1);
    EXPECT_EQ(cap.weight, 2);
    ASSERT_EQ(cap.paths.size(), 1u);
    EXPECT_EQ(cap.paths[0].size(), 5u);
    const DgnElement& beam = elements[1];
    EXPECT_EQ(beam.kind, DgnElement::Kind::LineString);
    EXPECT_EQ(beam.level, 2);
    EXPECT_EQ(beam.style, 7);
    EXPECT_NE(beam.styleString.find("c:#00a500"), std::string::npos) << beam.styleString;
    EXPECT_EQ(elements[3].kind, DgnElement::Kind::Shape); // the circle, as 36 sides
    const DgnElement& label = elements[4];
    EXPECT_EQ(label.kind, DgnElement::Kind::Text);
    EXPECT_EQ(label.text, "BENT \"2\"");
    EXPECT_EQ(label.level, 10);
    EXPECT_NE(label.styleString.find("a:90"), std::string::npos) << label.styleString;

    LoadedDrawing loaded;
    ASSERT_TRUE(loadDrawing(TW_PROGRAM_DIR, drawing().string(), loaded, error)) << error;
    EXPECT_EQ(loaded.elements, 5u);
    EXPECT_EQ(loaded.scene.polylines.size() + loaded.scene.shapes.size(), 5u);
    EXPECT_EQ(loaded.scene.levels(), (std::vector<int>{1, 2, 10}));
}

TEST_F(DrawingFile, WhatIsNoDrawingIsRefusedInOneSentence) {
    EXPECT_NE(refused(dir / "missing.dgn").find("no such file"), std::string::npos);
    fs::create_directories(dir / "folder.dgn");
    EXPECT_NE(refused(dir / "folder.dgn").find("folder"), std::string::npos);
    writeAll(dir / "empty.dgn", "");
    EXPECT_NE(refused(dir / "empty.dgn").find("empty"), std::string::npos);
    writeAll(dir / "text.dgn", "LINE 0 0 1 1\r\n");
    EXPECT_NE(refused(dir / "text.dgn").find("not a MicroStation drawing"), std::string::npos);
    // A version 8 file is an OLE compound document, which the V7 driver does not read: named as such.
    writeAll(dir / "v8.dgn", std::string("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8) + std::string(4096, '\0'));
    EXPECT_EQ(refused(dir / "v8.dgn"), (dir / "v8.dgn").string() +
                                           " is a DGN version 8 drawing. DGN version 8 drawings need a driver this "
                                           "machine does not have; V7 drawings open.");
}

// Nothing that may never end is read: a device, a pipe, a file past the
// size any drawing has (here sparse, so it costs no disk).
TEST_F(DrawingFile, WhatMayNeverEndIsRefusedBeforeItIsRead) {
    EXPECT_NE(refused("/dev/zero").find("/dev/zero is a character device, not a drawing"), std::string::npos);
    ASSERT_EQ(::mkfifo((dir / "pipe.dgn").c_str(), 0600), 0);
    EXPECT_NE(refused(dir / "pipe.dgn").find("is a pipe, not a drawing"), std::string::npos);
    fs::resize_file((writeAll(dir / "huge.dgn", "x"), dir / "huge.dgn"), kMaxDrawingBytes + 1);
    EXPECT_NE(refused(dir / "huge.dgn").find("is larger than a drawing can be (256 MiB)"), std::string::npos);
}

TEST_F(DrawingFile, WithoutItsReaderLibraryADrawingIsRefusedInOneSentence) {
    const fs::path good = drawing();
    std::vector<DgnElement> elements;
    std::string error;
    EXPECT_FALSE(GdalDrawingReader(dir.string()).read(good.string(), elements, error));
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
    EXPECT_NE(error.find(good.string()), std::string::npos) << error;
    EXPECT_NE(error.find("drawing reader"), std::string::npos) << error;
    // The reader's own folder still reads it afterwards.
    EXPECT_TRUE(GdalDrawingReader(TW_PROGRAM_DIR).read(good.string(), elements, error)) << error;
}

TEST_F(DrawingFile, ADrawingCutOffOrSpoiledIsDamaged) {
    const std::string whole = readAll(drawing());
    ASSERT_GT(whole.size(), 2000u);
    for (const size_t keep : {whole.size() - 2, whole.size() - 100, whole.size() / 2, size_t{1600}}) {
        SCOPED_TRACE(keep);
        writeAll(dir / "cut.dgn", whole.substr(0, keep));
        EXPECT_NE(refused(dir / "cut.dgn").find("damaged"), std::string::npos);
    }
    // Noise after a good header: read or refused, never a crash.
    std::string spoiled = whole;
    for (size_t i = 1600; i < spoiled.size(); i += 7)
        spoiled[i] = static_cast<char>(spoiled[i] * 31 + 17);
    writeAll(dir / "spoiled.dgn", spoiled);
    std::vector<DgnElement> elements;
    std::string error;
    const bool read = GdalDrawingReader(TW_PROGRAM_DIR).read((dir / "spoiled.dgn").string(), elements, error);
    EXPECT_TRUE(read || !error.empty());
    drawing::sceneFromDgn(elements).bounds();
}

} // namespace
} // namespace tw
