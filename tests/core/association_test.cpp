#include "core/association/freedesktop.h"
#include "core/association/registryassociation.h"
#ifdef _WIN32
#include "core/association/win32registry.h"
#endif
#include "memoryregistry.h"
#include "testutil.h"

#include <gtest/gtest.h>

#include <tuple>

#include <functional>
#include <memory>

using namespace parlex;
namespace fs = std::filesystem;

namespace {

// One place where associations are kept, seen by any number of program copies.
class Store {
public:
    virtual ~Store() = default;
    virtual std::unique_ptr<FileAssociation> copyAt(const fs::path& program) = 0;
    // From now on nothing can be written there, where the store can be made so.
    virtual bool canRefuse() const { return true; }
    virtual void refuseWrites() = 0;
};

class RegistryStore : public Store {
public:
    std::unique_ptr<FileAssociation> copyAt(const fs::path& program) override {
        return std::make_unique<RegistryAssociation>(registry_, program.string());
    }
    void refuseWrites() override { registry_.readOnly = true; }

private:
    testutil::MemoryRegistry registry_;
};

class FreedesktopStore : public Store {
public:
    std::unique_ptr<FileAssociation> copyAt(const fs::path& program) override {
        return std::make_unique<FreedesktopAssociation>(program, dir_ / "data", dir_ / "config");
    }
    // A file where the folders should be: no permission bits stop a test run as root.
    void refuseWrites() override {
        fs::remove_all(dir_ / "data");
        fs::remove_all(dir_ / "config");
        testutil::writeText(dir_ / "data", "");
        testutil::writeText(dir_ / "config", "");
    }

private:
    testutil::TempDir dir_;
};

#ifdef _WIN32
// The registry of this Windows (under Wine, the prefix's): the user's classes,
// cleared before and after.
class Win32Store : public Store {
public:
    Win32Store() { clear(); }
    // PARLEX_KEEP_REGISTRY=1 leaves the last state for a look with `reg query`.
    ~Win32Store() override {
        if (!std::getenv("PARLEX_KEEP_REGISTRY"))
            clear();
    }
    std::unique_ptr<FileAssociation> copyAt(const fs::path& program) override {
        return std::make_unique<RegistryAssociation>(registry_, program.string());
    }
    bool canRefuse() const override { return false; }
    void refuseWrites() override {}

private:
    void clear() {
        registry_.deleteKey(".npc");
        registry_.deleteKey("Parlex");
    }
    Win32Registry registry_;
};
#endif

struct Backend {
    const char* name;
    std::function<std::unique_ptr<Store>()> make;
};

class AssociationContract : public testing::TestWithParam<Backend> {
protected:
    std::unique_ptr<Store> store = GetParam().make();
    const fs::path here = "/opt/parlex/parlex";
    const fs::path elsewhere = "/home/user/old copy/parlex";
};

TEST_P(AssociationContract, TickingTakesTheAssociationOverAndUntickingUntiesAnyCopy) {
    auto self = store->copyAt(here), other = store->copyAt(elsewhere);
    ASSERT_TRUE(other->associate());
    EXPECT_FALSE(self->isAssociated()) << "another copy is not this program";
    ASSERT_TRUE(self->associate());
    ASSERT_TRUE(self->associate()); // twice is the same as once
    EXPECT_TRUE(store->copyAt(here)->isAssociated()) << "a new opening sees the same state";
    EXPECT_FALSE(other->isAssociated());
    ASSERT_TRUE(other->associate());
    ASSERT_TRUE(self->disassociate());
    EXPECT_FALSE(other->isAssociated());
    EXPECT_TRUE(self->disassociate()) << "nothing to untie is no failure";
}

TEST_P(AssociationContract, AStoreThatRefusesWritesFailsAndStaysUnticked) {
    if (!store->canRefuse())
        GTEST_SKIP() << "the system registry cannot be made read-only by a test";
    store->refuseWrites();
    auto self = store->copyAt(here);
    EXPECT_FALSE(self->associate());
    EXPECT_FALSE(self->isAssociated());
}

const Backend kBackends[] = {
    {"Registry", [] { return std::make_unique<RegistryStore>(); }},
#ifdef _WIN32
    {"Win32Registry", [] { return std::make_unique<Win32Store>(); }},
#endif
    {"Freedesktop", [] { return std::make_unique<FreedesktopStore>(); }},
};

INSTANTIATE_TEST_SUITE_P(Backends, AssociationContract, testing::ValuesIn(kBackends),
                         [](const auto& info) { return std::string(info.param.name); });

// ------------------------------------------------------------------ the registry

TEST(RegistryAssociation, WritesTheSixKeysWithTheProgramsPath) {
    testutil::MemoryRegistry registry;
    ASSERT_TRUE(RegistryAssociation(registry, "C:\\Games\\Parlex.EXE").associate());
    const std::map<std::string, std::string> expected{
        {".npc", "Parlex"},
        {"parlex", "NPC SCRIPT FILE (Ja2/UB games)"},
        {"parlex\\defaulticon", "C:\\Games\\Parlex.exe,3"},
        {"parlex\\shell", "Open"},
        {"parlex\\shell\\open", ""},
        {"parlex\\shell\\open\\command", "C:\\Games\\Parlex.exe %1"}};
    EXPECT_EQ(registry.keys, expected);
}

TEST(RegistryAssociation, TheTestComparesWithoutRegardToCaseAndNeedsBothEnds) {
    // The default values of ".npc" and of the command key ("" for no key).
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"Parlex", "C:\\Games\\Parlex.exe %1", true},
        {"PARLEX", "c:\\GAMES\\parlex.EXE %1", true},
        {"Notepad", "C:\\Games\\Parlex.exe %1", false},
        {"Parlex", "", false},
    };
    for (const auto& [type, command, associated] : cases) {
        testutil::MemoryRegistry registry;
        registry.setDefaultValue(".npc", type);
        if (!command.empty())
            registry.setDefaultValue("Parlex\\Shell\\Open\\Command", command);
        EXPECT_EQ(RegistryAssociation(registry, "C:\\Games\\Parlex.exe").isAssociated(), associated)
            << type << " / " << command;
    }
}

// ------------------------------------------------------------------ freedesktop

TEST(Freedesktop, ExecValuesQuoteWhatTheyMustAndReadBack) {
#ifdef _WIN32
    GTEST_SKIP() << "the freedesktop association is the Linux desktop's (Unix paths, "
                    "update-mime-database); Windows ties files through the registry";
#endif
    const std::pair<std::string, std::string> cases[] = {
        {"/usr/bin/parlex", "/usr/bin/parlex %f"},
        {"/home/u/My Games/parlex", "\"/home/u/My Games/parlex\" %f"},
        {"/opt/a\"b$c`d\\e/parlex", "\"/opt/a\\\\\"b\\\\$c\\\\`d\\\\\\\\e/parlex\" %f"},
        {"/opt/100%/parlex", "/opt/100%%/parlex %f"},
    };
    for (const auto& [program, exec] : cases) {
        EXPECT_EQ(freedesktop::execValue(program), exec);
        EXPECT_EQ(freedesktop::programOfExec(exec), fs::path(program)) << exec;
    }
    for (const char* unreadable : {"\"/no/closing/quote %f", "%f", "/opt/%x/parlex %f", ""})
        EXPECT_EQ(freedesktop::programOfExec(unreadable), std::nullopt) << unreadable;
}

TEST(Freedesktop, TheDefaultIsSetAndRemovedKeepingEveryOtherLine) {
    struct Case {
        const char* name;
        const char* before;
        const char* set;     // with the default set to org.parlex.Parlex.desktop
        const char* removed; // and removed again: a group that was added stays
    };
    const Case cases[] = {
        {"no file", "", "[Default Applications]\napplication/x-ja2-npc=org.parlex.Parlex.desktop\n",
         "[Default Applications]\n"},
        {"another program had it, in CR LF, blanks around =",
         "[Default Applications]\r\napplication/x-ja2-npc = hexedit.desktop;\r\nx/y=z\r\n",
         "[Default Applications]\napplication/x-ja2-npc=org.parlex.Parlex.desktop\nx/y=z\n",
         "[Default Applications]\nx/y=z\n"},
        {"the type in another group stays",
         "[Added Associations]\napplication/x-ja2-npc=hexedit.desktop;\n[Default Applications]\n",
         "[Added Associations]\napplication/x-ja2-npc=hexedit.desktop;\n[Default Applications]\n"
         "application/x-ja2-npc=org.parlex.Parlex.desktop\n",
         "[Added Associations]\napplication/x-ja2-npc=hexedit.desktop;\n[Default Applications]\n"},
    };
    const auto type = std::string(kScriptMimeType);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const auto set = freedesktop::withDefault(c.before, type, kDesktopId);
        EXPECT_EQ(set, c.set);
        EXPECT_EQ(freedesktop::defaultOf(set, type), std::string(kDesktopId));
        const auto removed = freedesktop::withDefault(set, type, std::nullopt);
        EXPECT_EQ(removed, c.removed);
        EXPECT_EQ(freedesktop::defaultOf(removed, type), std::nullopt);
    }
    EXPECT_EQ(freedesktop::defaultOf("[Default Applications]\napplication/x-ja2-npc= a.desktop;b\n",
                                     type),
              "a.desktop");
}

} // namespace
