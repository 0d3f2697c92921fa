#!/usr/bin/env python3
"""Plants known faults into a copy of the tree, one at a time, and checks that the
tests catch each one.

Every fault is a small change of one line or a few lines of product code: a wrong
byte, an off-by-one in a range, a missing question, a wrong colour, a lost undo step,
a refused valid number, a wrong exit code. The script copies the working tree (with
uncommitted changes) to a work folder, builds it once, checks that the tests pass
there, then for each fault: changes the code, builds, runs every test, puts the code
back. A fault is caught when at least one test fails; the tests that failed are
listed. A fault that no longer applies (its text is not found exactly once under
src/) or no longer builds is an error of this table, reported as such.

Usage:
  scripts/plant_faults.py [--work DIR] [--only ID[,ID...]] [--jobs N]
  scripts/plant_faults.py --list     the faults and where each one lands
Exit status: 0 every fault caught, 1 a fault missed or not applied, 2 bad call or the
unchanged tree does not build or pass.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# (name, library, what the fault breaks, text in src/ found exactly once, its replacement)
FAULTS = [
    # ---------------------------------------------------------------- core
    ("history-redo", "core", "redo hands back the same edit again",
     "return edits_[cursor_++];", "return edits_[cursor_];"),
    ("history-branch", "core", "a new edit keeps what could still be redone",
     "edits_.resize(cursor_);", ""),
    ("phrase-decode-ya", "core", "a stored 'я' is read as a blank",
     "c = kYa;", "c = kBlank;"),
    ("phrase-encode-ya", "core", "'я' is stored with the wrong byte",
     "record[2 * i + 1] = 0x01;", "record[2 * i + 1] = 0x02;"),
    ("cp1251-capitals", "core", "the Cyrillic block is shifted by one letter",
     "return 0x0410 + (byte - 0xC0);", "return 0x0410 + (byte - 0xC1);"),
    ("json-quote", "core", "a quote in a JSON string is not escaped",
     "if (c >= 0x20 && !needsEscape(static_cast<char>(c), \"\\\"\")) {",
     "if (c >= 0x20 && !needsEscape(static_cast<char>(c), \"\")) {"),
    ("convert-to-ub", "core", "ja -> ub copies from one byte too early",
     "std::copy(source.begin() + kJaHeaderSize, source.end(), out.begin());",
     "std::copy(source.begin() + kJaHeaderSize - 1, source.end() - 1, out.begin());"),
    ("convert-loss-record", "core", "the loss check looks at record 49, not 50",
     "recordOffset(NpcFileType::Ub, 49)", "recordOffset(NpcFileType::Ub, 48)"),
    ("explain-day-range", "core", "first day = last day is not remarked",
     "last - static_cast<int>(v_) <= 0", "last - static_cast<int>(v_) < 0"),
    ("explain-leadership", "core", "leadership 100 is called impossible",
     "if (v_ > 100)", "if (v_ >= 100)"),
    ("explain-jump-ja", "core", "a ja script may jump to record 50",
     "v_ >= kJaRecords)", "v_ > kJaRecords)"),
    ("phrase-word-11", "core", "'11 фраз' becomes '11 фразу'",
     "if (count > 10 && count < 20)", "if (count > 11 && count < 20)"),
    ("entry-byte-255", "core", "the byte editor refuses 255 (the greatest value)",
     "if (value > widthMaximum(mode))", "if (value >= widthMaximum(mode))"),
    ("entry-three-digits", "core", "three-digit numbers are refused in a Byte field",
     "mode == FieldWidth::Word ? 5 : 3;", "mode == FieldWidth::Word ? 5 : 2;"),
    ("word-byte-order", "core", "Words are read high byte first",
     "return at(0) + 256u * at(1);", "return at(1) + 256u * at(0);"),
    ("field-label", "core", "a Byte field's label is spelled differently",
     '" as Byte)"', '" as byte)"'),
    ("neutral-count", "core", "a standard deletion writes phrase count 0",
     '"PhraseCount", 0x01,', '"PhraseCount", 0x00,'),
    ("settings-line-limit", "core", "settings lines are cut one character early",
     "line = line.substr(0, kLineLimit);", "line = line.substr(0, kLineLimit - 1);"),
    ("list-date-month", "core", "the list file's date has the month one too low",
     "t.tm_mon + 1,", "t.tm_mon,"),
    ("list-replace-silently", "core", "an existing list file is replaced without asking",
     "if (!replace && platform::fileExists(path))",
     "if (!replace && platform::fileExists(path) && false)"),
    ("civilian-phrases", "core", "civilian files may hold 16 phrases",
     '{EdtKind::Civilian, "civ", 14,', '{EdtKind::Civilian, "civ", 15,'),
    ("lint-phrase-range", "core", "lint looks for one phrase too many",
     "p < spoken->first + spoken->count; ++p)", "p <= spoken->first + spoken->count; ++p)"),
    ("settings-remember", "core", "the remembered speech path option is not read back",
     "o.rememberPath = flag(kept(Key::RemebPath));", ""),
    ("colour-order", "core", "the phrase colour is read without swapping red and blue",
     "return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);", "return c;"),
    ("phrases-guard", "core", "a script with 02 in odd bytes passes for phrases",
     "if (bytes[i] > 1)", "if (bytes[i] > 2)"),
    ("overview-speaker", "core", "the overview names the record before the speaker",
     "row.spokenBy.push_back(static_cast<int>(i) + 1);",
     "row.spokenBy.push_back(static_cast<int>(i));"),
    ("language-locale-order", "core", "LANG decides before LC_ALL",
     'for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {',
     'for (const char* name : {"LANG", "LC_MESSAGES", "LC_ALL"}) {'),
    ("settings-language", "core", "an English window is not written to the settings file",
     'if (name == "[INTERFACE]" && o.language == Language::English) {',
     'if (name == "[INTERFACE]" && false) {'),
    # ---------------------------------------------------------------- session
    ("script-save-failure", "session", "a failed save lets the flow throw the changes away",
     "[this] { return save() == SaveOutcome::Saved; }", "[this] { save(); return true; }"),
    ("speech-no-question", "session", "a changed speech file is closed without a question",
     "    if (!canSave())\n        return true;\n    if (edt_->isNew()",
     "    return true;\n    if (edt_->isNew()"),
    ("undo-step-lost", "session", "an edit is not recorded for undo",
     "history_.push({index, npc_->record(index), record});", ""),
    ("undo-stays", "session", "undo does not move to the record it changes",
     "if (const auto index = document_.undo())\n        cursor_.setPosition(static_cast<int>(*index) + 1);",
     "document_.undo();"),
    ("pin-stuck", "session", "a second right click does not free the pin",
     "pinned_ = false;\n        hover(byteIndex);", "hover(byteIndex);"),
    ("next-stops-early", "session", "the next record stops at 49",
     "if (document_.file() && position_ < kPositions)",
     "if (document_.file() && position_ < kPositions - 1)"),
    ("first-is-last", "session", "'first record' goes to the last one",
     "moveToFound(npc->firstNonEmptyPosition());", "moveToFound(npc->lastNonEmptyPosition());"),
    ("disk-no-reload", "session", "a yes to reloading a changed file does not reload",
     "if (prompts_.question(title, text, false) == UserPrompts::Answer::Yes)\n            emit reloadWanted();",
     "prompts_.question(title, text, false);"),
    ("restore-options", "session", "a past run's options are not taken over",
     "options_ = settings.options;", ""),
    ("options-find-name", "session", "closing the options always finds the speech file by name",
     "options.findEdtName = box(OptionBox::CheckS).enabled;", "options.findEdtName = true;"),
    ("overview-redraws", "session", "an edit redraws the whole overview instead of its row",
     "records_.updateRow(std::move(*row), shown);", "(void)shown;\n        rebuild();"),
    ("editor-hover-mode", "session", "the byte editor always pins the field it shows",
     "session_->cursor().showByte(field());",
     "session_->cursor().press(field(), !session_->cursor().isPinned());"),
    # ---------------------------------------------------------------- gui
    ("hover-colour", "gui", "the field under the mouse is marked yellow-green",
     "const QColor ByteGrid::kHover{192, 255, 192};", "const QColor ByteGrid::kHover{255, 255, 192};"),
    ("grid-paint-colour", "gui", "the byte grid paints every cell in the normal colour",
     "painter.fillRect(cell, colours_[at]);",
     "painter.fillRect(cell, palette().color(QPalette::Button));"),
    ("grid-cell-unread", "gui", "a screen reader reads the grid's cells as empty",
     "return t == QAccessible::Name || t == QAccessible::Value ? grid()->text(index())",
     "return t == QAccessible::Name || t == QAccessible::Value ? QString()"),
    ("key-ctrl-plus", "gui", "Ctrl+pad plus steps one record instead of five",
     "return mods == Mods::Ctrl ? Command::ForwardFive : Command::Next;",
     "return mods == Mods::Ctrl ? Command::Next : Command::ForwardFive;"),
    ("paste-enabled", "gui", "paste is offered with an empty record buffer",
     'menus_->action("nPaste")->setEnabled(shown && session_.document().buffer().isFilled());',
     'menus_->action("nPaste")->setEnabled(shown);'),
    ("help-alignment", "gui", "a right click on the help never centres it",
     "setAlignmentIndex((alignment_ + 1) % 3);", "setAlignmentIndex((alignment_ + 1) % 2);"),
    ("phrase-limit-colour", "gui", "a phrase exactly at its limit is shown red",
     "characterCount() - 1 > speech_.textLimit();", "characterCount() - 1 >= speech_.textLimit();"),
    ("splitter-place", "gui", "a splitter's bar is restored 10 pixels off",
     "splitter.setSizes({first, total - first});",
     "splitter.setSizes({first + 10, total - first - 10});"),
    ("entry-range-colour", "gui", "an out-of-range entry is not shown red",
     "const QColor kOutOfRange{255, 0, 0};", "const QColor kOutOfRange{0, 0, 0};"),
    ("pad-plus-types", "gui", "the pad's plus types into the phrase",
     "Qt::Key_Asterisk, Qt::Key_Plus,  Qt::Key_Minus,", "Qt::Key_Asterisk, Qt::Key_Minus,"),
    # ---------------------------------------------------------------- cli
    ("usage-exit", "cli", "a usage error exits 1 instead of 2",
     "inline constexpr int kUsage = 2;", "inline constexpr int kUsage = 1;"),
    ("group-without-command", "cli", "a command group without its subcommand exits 0",
     "return asked ? kOk : kUsage;", "return kOk;"),
    ("convert-line", "cli", "convert names the source's layout for the target",
     '<< typeTag(to) << ")\\n";', '<< typeTag(from) << ")\\n";'),
    ("cli-lang-ignored", "cli", "explain --lang en keeps the Russian sentences",
     "const ExplainContext context{file->type(), lists.get(), false, 0, io.language};",
     "const ExplainContext context{file->type(), lists.get(), false, 0};"),
    ("explain-alert-mark", "cli", "explain prints an alert line without its mark",
     'out += (e.alert ? "  ! " : "    ")', 'out += (e.alert ? "    " : "    ")'),
    ("explain-remark-stars", "cli", "explain prints a remark without its stars",
     'out += "**" + e.remark + "**";', "out += e.remark;"),
    ("lint-json-field", "cli", "lint --json gives the record as the field",
     '",\\"field\\":" + jsonNumberOrNull(f.field)', '",\\"field\\":" + jsonNumberOrNull(f.record)'),
    ("diff-json-old", "cli", "diff --json gives the new bytes as the old",
     '",\\"old\\":" + jsonString(c.oldHex)', '",\\"old\\":" + jsonString(c.newHex)'),
    ("code-list-eager", "gui", "the code-list pane makes its list widget at start",
     "    (void)installed;\n}", "    (void)installed;\n    rows();\n}"),
    ("help-language-kept", "gui", "the help text stays Russian when the window turns English",
     "help_->setLanguage(o.language);", ""),
]


def sources(root):
    out = subprocess.run(["git", "-C", str(root), "ls-files", "-z", "src"],
                         check=True, capture_output=True).stdout
    return [p for p in out.decode().split("\0") if p]


def locate(root, anchor):
    """The one file under src/ that holds `anchor` exactly once, else an error text."""
    hits = []
    for rel in sources(root):
        try:
            text = (root / rel).read_text(encoding="utf-8")
        except (UnicodeDecodeError, FileNotFoundError):
            continue
        n = text.count(anchor)
        if n:
            hits.append((rel, n))
    if len(hits) == 1 and hits[0][1] == 1:
        return hits[0][0], None
    if not hits:
        return None, "text not found"
    return None, "text found %d times: %s" % (sum(n for _, n in hits),
                                             ", ".join(r for r, _ in hits))


def copy_tree(work):
    """Copies the tracked files of the working tree; unchanged files keep their times,
    so a second run builds only what changed."""
    out = subprocess.run(["git", "-C", str(ROOT), "ls-files", "-z"],
                         check=True, capture_output=True).stdout
    for rel in (p for p in out.decode().split("\0") if p):
        src, dst = ROOT / rel, work / rel
        if not src.is_file():
            continue
        if dst.exists() and dst.read_bytes() == src.read_bytes():
            continue
        dst.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(src, dst)
    # The copy is a git work tree of its own, so that `git ls-files` finds its sources.
    subprocess.run(["git", "-C", str(work), "init", "-q"], check=True)
    subprocess.run(["git", "-C", str(work), "add", "-A"], check=True)


def run(cmd, log):
    with open(log, "w") as f:
        return subprocess.run(cmd, stdout=f, stderr=subprocess.STDOUT).returncode


def build_and_test(work, build, jobs, log):
    if run(["cmake", "--build", str(build), "-j", str(jobs)], log) != 0:
        return None
    run(["ctest", "--test-dir", str(build), "-j", str(jobs), "--timeout", "300"], log)
    failed = []
    in_list = False
    for line in Path(log).read_text(errors="replace").splitlines():
        if line.startswith("The following tests FAILED"):
            in_list = True
        elif in_list:
            m = re.match(r"\s*\d+ - (\S+)", line)
            if m:
                failed.append(m.group(1))
    return failed


def main():
    ap = argparse.ArgumentParser(description="Plants known faults and checks the tests catch them.")
    ap.add_argument("--work", default="/tmp/parlex-faults", help="the folder of the copy")
    ap.add_argument("--only", help="comma-separated fault names")
    ap.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    ap.add_argument("--list", action="store_true", help="list the faults and where they land")
    a = ap.parse_args()

    faults = FAULTS
    if a.only:
        wanted = set(a.only.split(","))
        unknown = wanted - {f[0] for f in FAULTS}
        if unknown:
            print("unknown fault: " + ", ".join(sorted(unknown)), file=sys.stderr)
            return 2
        faults = [f for f in FAULTS if f[0] in wanted]

    if a.list:
        bad = 0
        for name, lib, what, anchor, _ in faults:
            where, error = locate(ROOT, anchor)
            bad += error is not None
            print("%-22s %-8s %-44s %s" % (name, lib, where or "ERROR: " + error, what))
        return 1 if bad else 0

    work = Path(a.work)
    build = work / "build"
    work.mkdir(parents=True, exist_ok=True)
    copy_tree(work)
    if not (build / "CMakeCache.txt").exists():
        if run(["cmake", "-S", str(work), "-B", str(build), "-DPARLEX_BENCHMARKS=OFF"],
               work / "configure.log") != 0:
            print("configure failed: see %s" % (work / "configure.log"), file=sys.stderr)
            return 2
    baseline = build_and_test(work, build, a.jobs, work / "baseline.log")
    if baseline is None or baseline:
        print("the unchanged tree does not build or pass: see %s" % (work / "baseline.log"),
              file=sys.stderr)
        return 2

    caught = missed = broken = 0
    for name, lib, what, anchor, replacement in faults:
        rel, error = locate(work, anchor)
        if error:
            print("NOT APPLIED %-22s %s" % (name, error), flush=True)
            broken += 1
            continue
        path = work / rel
        original = path.read_text(encoding="utf-8")
        path.write_text(original.replace(anchor, replacement, 1), encoding="utf-8")
        try:
            failed = build_and_test(work, build, a.jobs, work / ("fault-%s.log" % name))
        finally:
            path.write_text(original, encoding="utf-8")
        if failed is None:
            print("NO BUILD    %-22s %s (see fault-%s.log)" % (name, rel, name), flush=True)
            broken += 1
        elif failed:
            caught += 1
            print("caught      %-22s %-8s by %d: %s" % (name, lib, len(failed), " ".join(failed)),
                  flush=True)
        else:
            missed += 1
            print("MISSED      %-22s %-8s %s (%s)" % (name, lib, what, rel), flush=True)
    print("%d faults: %d caught, %d missed, %d not applied" % (len(faults), caught, missed, broken))
    return 0 if missed == 0 and broken == 0 else 1


if __name__ == "__main__":
    sys.exit(main())
