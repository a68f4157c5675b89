// SPDX-License-Identifier: Apache-2.0
// The sample engine of the program folder, called as Run calls it.
#include "FakePorts.h"
#include "TestFiles.h"
#include "core/EngineListing.h"
#include "core/run/Run.h"

#include <gtest/gtest.h>

#include <array>
#include <dlfcn.h>
#include <fstream>
#include <string>

namespace tw {
namespace {

using Rout = void (*)(char*, int*, char*, int*, char*, int*, char*, int*, char*, int*, char*, int*, char*, int*, char*,
                      int*, char*, int*, char*, int*);

// Runs the engine on `input`; the concrete data listing it leaves.
std::string runEngine(const std::string& input) {
    void* lib = dlopen((std::string(TW_PROGRAM_DIR) + "/libcalbnt.so").c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!lib) {
        ADD_FAILURE() << dlerror();
        return {};
    }
    const auto rout = reinterpret_cast<Rout>(dlsym(lib, "DLL_ROUT"));
    EXPECT_NE(rout, nullptr);
    const std::string base = runBaseName(input);
    std::array<std::string, 10> names = {input};
    for (std::size_t i = 0; i < kOutputSuffixes.size(); ++i)
        names[i + 1] = base + kOutputSuffixes[i];
    std::array<int, 10> lengths{};
    for (std::size_t i = 0; i < names.size(); ++i) {
        names[i] = padName(names[i]);
        lengths[i] = static_cast<int>(names[i].size());
    }
    if (rout)
        rout(names[0].data(), &lengths[0], names[1].data(), &lengths[1], names[2].data(), &lengths[2], names[3].data(),
             &lengths[3], names[4].data(), &lengths[4], names[5].data(), &lengths[5], names[6].data(), &lengths[6],
             names[7].data(), &lengths[7], names[8].data(), &lengths[8], names[9].data(), &lengths[9]);
    dlclose(lib);
    return base + ".ebntc";
}

TEST(SampleEngine, AnInputItCannotReadEndsInItsErrorLine) {
    const auto dir = test::freshFolder("engine-");
    test::FakePorts ports;
    // No file at all, a file that is no project, and a project it reads.
    const std::string missing = runEngine((dir / "missing.ebnt").string());
    EXPECT_FALSE(concreteDataIsClean(ports, missing));
    EXPECT_NE(test::slurp(missing).find("ERROR LINE: THE INPUT FILE COULD NOT BE READ"), std::string::npos);
    std::ofstream(dir / "garbage.ebnt") << "not a project\r\n";
    EXPECT_FALSE(concreteDataIsClean(ports, runEngine((dir / "garbage.ebnt").string())));
    std::filesystem::copy_file(std::string(TW_SOURCE_DIR) + "/samples/intermediate.ebnt", dir / "sample.ebnt");
    EXPECT_TRUE(concreteDataIsClean(ports, runEngine((dir / "sample.ebnt").string())));
}

} // namespace
} // namespace tw

namespace tw {
namespace {

// The sample drawing batch program makes its intermediate file where no one
// can have put a link: a link named like it beside the script is left alone,
// and so is the file it points at; the drawing is still made.
TEST(SampleEngine, TheBatchProgramWritesThroughNoLinkBesideTheScript) {
    const auto dir = test::freshFolder("engine-");
    std::ofstream(dir / "bente.sif") << "SYMBOLOGY 1 0 0 0\nLINE 0 0 10 10\n";
    std::ofstream(dir / "victim.txt") << "the user's own";
    std::filesystem::create_symlink(dir / "victim.txt", dir / "bente.geojson");
    const std::string command = std::string(TW_PROGRAM_DIR) + "/tarnwick-dgnbatch " + (dir / "bente.sif").string();
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(test::slurp(dir / "victim.txt"), "the user's own");
    EXPECT_TRUE(std::filesystem::is_symlink(dir / "bente.geojson"));
    EXPECT_GT(std::filesystem::file_size(dir / "bente.dgn"), 0u);
    std::filesystem::remove_all(dir);
}

} // namespace
} // namespace tw
