#include "Platform/Linux/AutostartService.h"

#include "Base/Error.h"
#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace mimkins::test {

namespace {

using Status = LoginService::Status;

class AutostartServiceTest : public testing::Test {
protected:
    TemporaryFolder home;
    Paths paths{home.path()};
    std::string entry = paths.autostartEntry();
    AutostartService service{paths, "/opt/mim kins/bin/mimkins"};

    void write(const std::string& text) {
        std::filesystem::create_directories(std::filesystem::path(entry).parent_path());
        writeFile(entry, text);
    }
};

TEST_F(AutostartServiceTest, ComesAndGoes) {
    EXPECT_EQ(service.status(), Status::notRegistered);
    service.registerItem();
    EXPECT_EQ(service.status(), Status::enabled);
    EXPECT_NE(readWhole(entry).find("\nExec=\"/opt/mim kins/bin/mimkins\"\n"), std::string::npos);
    service.unregisterItem();
    EXPECT_EQ(service.status(), Status::notRegistered);
    EXPECT_NO_THROW(service.unregisterItem());
}

TEST_F(AutostartServiceTest, WhatTheDesktopSwitchedOffIsOff) {
    write("[Desktop Entry]\nExec=mimkins\nHidden = True\n");
    EXPECT_EQ(service.status(), Status::disabledByUser);
    write("[Desktop Entry]\nExec=mimkins\nX-GNOME-Autostart-enabled=false\n");
    EXPECT_EQ(service.status(), Status::disabledByUser);
    write("[Desktop Entry]\nExec=mimkins\nHidden=false\n[Other]\nHidden=true\n");
    EXPECT_EQ(service.status(), Status::enabled);
    write("[Desktop Entry]\nHidden=true\n");
    service.registerItem();
    EXPECT_EQ(service.status(), Status::enabled);
}

TEST_F(AutostartServiceTest, MeaningfulCharactersOfThePathAreEscaped) {
    AutostartService odd(paths, "/a\"b$c`d\\e%f");
    odd.registerItem();
    EXPECT_NE(readWhole(entry).find(R"(Exec="/a\\"b\\$c\\`d\\\\e%%f")"), std::string::npos)
        << readWhole(entry);
}

TEST_F(AutostartServiceTest, AFolderThatCantBeMadeIsAnError) {
    std::filesystem::create_directories(paths.home());
    writeFile(paths.home() + "/.config", "a file");
    EXPECT_THROW(service.registerItem(), Error);
    EXPECT_EQ(service.status(), Status::notRegistered);
}

} // namespace

} // namespace mimkins::test
