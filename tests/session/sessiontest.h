#pragma once

// A session over a temporary folder, answered by a script, and a few ways to look at it.
#include "scriptedprompts.h"
#include "session/session.h"
#include "testutil.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <gtest/gtest.h>

namespace sessiontest {

using parlex::session::Session;
using Answer = parlex::session::UserPrompts::Answer;
using Icon = parlex::session::UserPrompts::Icon;

class SessionTest : public ::testing::Test {
protected:
    testutil::TempDir dir;
    testutil::ScriptedPrompts prompts;
    Session session{prompts, dir.path()};

    void TearDown() override {
        EXPECT_EQ(prompts.unexpected, 0) << "a question or dialog the script did not expect";
        EXPECT_TRUE(prompts.answers.empty()) << "answers left over: a question was not asked";
        EXPECT_TRUE(prompts.files.empty()) << "file choices left over: a dialog was not shown";
    }

    QString write(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        testutil::writeBytes(dir / name, bytes);
        return path(name);
    }
    QString path(const std::string& name) const {
        return QString::fromStdString((dir / name).string());
    }
    std::vector<std::uint8_t> read(const std::string& name) const {
        return testutil::readBytes(dir / name);
    }
    bool changed() const { return session.script() && session.script()->isChanged(); }

    // Lets queued signals (the file watch) arrive, for at most `ms` or until `done`.
    template <typename Done> static bool waitFor(Done done, int ms = 3000) {
        QElapsedTimer timer;
        timer.start();
        while (!done() && timer.elapsed() < ms)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return done();
    }
};

} // namespace sessiontest
