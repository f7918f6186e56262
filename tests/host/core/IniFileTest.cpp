#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "host/core/IniFile.h"

namespace host {
namespace {

struct Lookup {
    const char* section;
    const char* key;
    std::optional<std::string> expected;
};

TEST(IniFile, ReadsKeysOfTheirOwnSectionOnly) {
    const IniFile ini = IniFile::Parse(
        "orphan=before any section\n"
        "; comment=not a key\n"
        "[Zorvanta]\n"
        "  ImportStartFrame = 12  \n"
        "Path=C:\\Rigs\\new\\\n"
        "Expr=a=b;c\n"
        "Quoted=\"  padded \"\n"
        "Single='x'\n"
        "Half=\"open\n"
        "Empty=\n"
        "just some words\n"
        "=no key\n"
        "# hash comment=x\n"
        "Dup=first\n"
        "Dup=second\n"
        "[Other]\n"
        "Shared=other\n"
        "[Broken\n"
        "Hidden=still Other\n"
        "[zorvanta] trailing text\n"
        "Shared=second block\n"
        "Dup=third\n");
    const std::vector<Lookup> lookups = {
        {"Zorvanta", "ImportStartFrame", "12"},
        {"ZORVANTA", "importstartframe", "12"},   // names ignore case
        {"Zorvanta", "Path", "C:\\Rigs\\new\\"},  // backslashes are not escapes
        {"Zorvanta", "Expr", "a=b;c"},            // split at the first '=', no inline comments
        {"Zorvanta", "Quoted", "  padded "},
        {"Zorvanta", "Single", "x"},
        {"Zorvanta", "Half", "\"open"},
        {"Zorvanta", "Empty", ""},
        {"Zorvanta", "Dup", "first"},
        {"Zorvanta", "Shared", "second block"},  // a later block of the same section
        {"Zorvanta", "orphan", std::nullopt},
        {"Zorvanta", "; comment", std::nullopt},
        {"Zorvanta", "# hash comment", std::nullopt},
        {"Zorvanta", "just some words", std::nullopt},
        {"Zorvanta", "", std::nullopt},
        {"Other", "Shared", "other"},
        {"Other", "Hidden", "still Other"},  // "[Broken" is no header
        {"Broken", "Hidden", std::nullopt},
        {"Other", "ImportStartFrame", std::nullopt},
        {"Missing", "Dup", std::nullopt},
    };
    for (const Lookup& lookup : lookups)
        EXPECT_EQ(ini.Get(lookup.section, lookup.key), lookup.expected)
            << lookup.section << "/" << lookup.key;
}

TEST(IniFile, CrlfAndByteOrderMarkAreReadAndKept) {
    const std::string text = "\xEF\xBB\xBF[Zorvanta]\r\nKey=value\r\nPath=C:\\x\r\n";
    IniFile ini = IniFile::Parse(text);
    EXPECT_EQ(ini.Get("Zorvanta", "Key"), "value");
    EXPECT_EQ(ini.Get("Zorvanta", "Path"), "C:\\x");
    EXPECT_EQ(ini.Text(), text);
    ASSERT_TRUE(ini.Set("Zorvanta", "New", "1"));
    ASSERT_TRUE(ini.Set("Added", "Key", "2"));
    EXPECT_EQ(ini.Text(),
              "\xEF\xBB\xBF[Zorvanta]\r\nKey=value\r\nPath=C:\\x\r\nNew=1\r\n\r\n"
              "[Added]\r\nKey=2\r\n");
}

TEST(IniFile, EditsKeepEverythingElse) {
    IniFile ini = IniFile::Parse(
        "; settings\n"
        "[Zorvanta]\n"
        "Key = old\n"
        "garbage line\n"
        "\n"
        "; about Other\n"
        "[Other]\n"
        "Key=untouched");
    ASSERT_TRUE(ini.Set("zorvanta", "KEY", "new"));       // in place, spelling and spacing kept
    ASSERT_TRUE(ini.Set("Zorvanta", "Added", "a\\b=c"));  // after the section's last line
    ASSERT_TRUE(ini.Set("Other", "Tail", "t"));           // the file had no final line break
    ASSERT_TRUE(ini.Set("Third", "K", "v"));
    EXPECT_EQ(ini.Text(),
              "; settings\n"
              "[Zorvanta]\n"
              "Key = new\n"
              "garbage line\n"
              "Added=a\\b=c\n"
              "\n"
              "; about Other\n"
              "[Other]\n"
              "Key=untouched\n"
              "Tail=t\n"
              "\n"
              "[Third]\n"
              "K=v\n");
}

TEST(IniFile, EveryValueReadsBackAsWritten) {
    const std::vector<std::string> values = {
        "",
        "plain",
        " leading",
        "trailing\t",
        "\"quoted\"",
        "'single'",
        "\"",
        "a=b",
        "C:\\Users\\me\\Tarnix.ini",
        "; not a comment",
        "[not a section]",
        "caf\xC3\xA9",
    };
    IniFile ini;
    for (const std::string& value : values) {
        ASSERT_TRUE(ini.Set("S", "Key", value)) << value;
        // Read back through the text, as another program opening the file would.
        EXPECT_EQ(IniFile::Parse(ini.Text()).Get("S", "Key"), value) << ini.Text();
    }
}

TEST(IniFile, RefusesWhatALineCannotHold) {
    struct Entry {
        const char* section;
        const char* key;
        std::string value;
    };
    const std::vector<Entry> refused = {
        {"", "Key", "v"},
        {"Sec]tion", "Key", "v"},
        {" Padded", "Key", "v"},
        {"S\nT", "Key", "v"},
        {"S", "", "v"},
        {"S", "a=b", "v"},
        {"S", "[Key", "v"},
        {"S", ";Key", "v"},
        {"S", "#Key", "v"},
        {"S", "Key ", "v"},
        {"S", "Key", "two\nlines"},
        {"S", "Key", "cr\r"},
        {"S", "Key", std::string("nul\0", 4)},
    };
    IniFile ini = IniFile::Parse("[S]\nKey=kept\n");
    for (const Entry& entry : refused) {
        EXPECT_FALSE(ini.Set(entry.section, entry.key, entry.value))
            << entry.section << "/" << entry.key;
        EXPECT_EQ(ini.Text(), "[S]\nKey=kept\n");
    }
}

TEST(IniFile, RemovesKeysAndSections) {
    IniFile ini =
        IniFile::Parse("[A]\nKey=1\nOther=2\n[B]\nKey=3\n[a]\nkey=4\n; end of a\n[C]\nKey=5\n");
    EXPECT_TRUE(ini.RemoveKey("A", "KEY"));  // from both blocks of A
    EXPECT_FALSE(ini.RemoveKey("A", "Key"));
    EXPECT_EQ(ini.Get("A", "Key"), std::nullopt);
    EXPECT_EQ(ini.Get("B", "Key"), "3");
    EXPECT_TRUE(ini.RemoveSection("a"));
    EXPECT_FALSE(ini.RemoveSection("A"));
    EXPECT_EQ(ini.Text(), "[B]\nKey=3\n[C]\nKey=5\n");
}

}  // namespace
}  // namespace host
