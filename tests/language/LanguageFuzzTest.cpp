// The reader of language files with content that nobody would write: good files with bytes changed, inserted, taken out
// and doubled. The number of inputs is KORVANEL_FUZZ_INPUTS, where that is set.
#include "language/LanguageFile.h"

#include "language/LanguageCheck.h"
#include "language/LanguageOutline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace korvanel::test {

namespace {

const std::array<QByteArray, 4> kGoodFiles{
    "lang=English\r\n[MAIN]\r\nsize=3\r\n001 &File\r\n; a comment\r\n002 &New\r\n003 one~~two\r\n"
    "[DEFAULT]\r\nsize=2\r\n  1 Error\r\n 02 # and #\r\n",
    "\xEF\xBB\xBFlang=\xC4\x8C"
    "esky\n[FORMH7]\nsize=1\n001 \xC5\xA0ipka\n\n[OTHER]\nsize=0\nignored\n[FORMH7]\nsize=1\n001 x\n",
    "lang=D\xE4nisch\n[VALUE NAMES]\nsize=12\n001 a\n002 b\n003 c\n004 d\n005 e\n006 f\n007 g\n008 h\n009 i\n010 j\n"
    "011 k\n012 \x80\x99\n",
    "lang=\n",
};
const std::array<QByteArray, 19> kPieces{
    "\n",
    "\r\n",
    "[",
    "]",
    "[MAIN]\n",
    "size=",
    "size=1\n",
    "size=32767\n",
    "lang=",
    "001 ",
    "002 ",
    "999 x",
    "\xEF\xBB\xBF",
    "~~",
    ";",
    QByteArray(1, '\0'),
    "\xED\xA0\x80",
    "\xF0\x9F\x98\x80",
    "-1",
};

class Mutator
{
public:
    QByteArray Next()
    {
        QByteArray content = kGoodFiles.at(Below(kGoodFiles.size()));
        for (std::size_t changes = 1 + Below(6); changes > 0; --changes)
            Change(content);
        return content;
    }

private:
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(random() % limit); }
    qsizetype PlaceIn(const QByteArray& content)
    {
        return static_cast<qsizetype>(Below(static_cast<std::size_t>(content.size()) + 1));
    }
    void Change(QByteArray& content)
    {
        const qsizetype place = PlaceIn(content);
        const qsizetype length = std::min<qsizetype>(static_cast<qsizetype>(Below(20)), content.size() - place);
        switch (Below(6)) {
        case 0: // another byte
            content.replace(place, std::min<qsizetype>(length, 1), QByteArray(1, static_cast<char>(Below(256))));
            break;
        case 1: // something of the format where it may not belong
            content.insert(place, kPieces.at(Below(kPieces.size())));
            break;
        case 2:
            content.remove(place, length);
            break;
        case 3: // a part once more
            content.insert(place, content.mid(place, length));
            break;
        case 4: // cut off; seldom, as most of the file goes
            if (Below(4) == 0)
                content.truncate(place);
            break;
        case 5: // a part elsewhere
            content.insert(PlaceIn(content), content.mid(place, length));
            break;
        default:
            break;
        }
    }

    std::mt19937_64 random{20'260'314};
};

/// What holds for the sections of any content, and of this one as it stands there.
void ExpectSound(const QByteArray& content, const LanguageSections& sections)
{
    qsizetype entries = 0;
    for (const auto& [name, texts] : sections) {
        entries += texts.size();
        EXPECT_FALSE(name.contains(u']') || name.contains(u'\n'));
    }
    EXPECT_LE(entries, content.count('\n') + 1) << "an entry is a line";
}

void ExpectSame(const LanguageOutline& outline, const LanguageSections& sections)
{
    for (const auto& [name, texts] : sections) {
        const OutlinedSection* const outlined = outline.Find(name);
        ASSERT_NE(outlined, nullptr);
        ASSERT_EQ(outlined->entries.size(), static_cast<std::size_t>(texts.size()));
        for (const OutlinedEntry& entry : outlined->entries)
            ASSERT_EQ(entry.text, texts.at(entry.number - 1));
    }
}

} // namespace

TEST(LanguageFuzzTest, AnyContent_IsReadOrRefusedAsTheCheckSays)
{
    constexpr int kUsualInputs = 200'000;
    constexpr int kChecked = 8; ///< of so many inputs one is checked too, which takes longer
    const int inputs = std::max(1'000, qEnvironmentVariableIsSet("KORVANEL_FUZZ_INPUTS")
                                           ? qEnvironmentVariableIntValue("KORVANEL_FUZZ_INPUTS")
                                           : kUsualInputs);
    Mutator mutator;
    int read = 0;
    for (int i = 0; i < inputs && !::testing::Test::HasFailure(); ++i) {
        const QByteArray content = mutator.Next();
        SCOPED_TRACE(content.toPercentEncoding(" []=~;#\n").toStdString());
        const std::optional<LanguageSections> sections = ParseLanguage(content);
        if (sections) {
            ++read;
            ExpectSound(content, *sections);
        }
        if (i % kChecked != 0)
            continue;
        const LanguageOutline outline = OutlineLanguage(content);
        EXPECT_TRUE(sections || HasErrors(outline.complaints)) << "what is refused has a reason";
        if (!HasErrors(outline.complaints))
            ExpectSame(outline, *sections);
    }
    RecordProperty("read", read);
    EXPECT_GT(read, inputs / 20) << "not all is refused";
    EXPECT_LT(read, inputs - inputs / 20) << "nor read";
}

TEST(LanguageFuzzTest, CheckOfAnyContent_ComesToAnEnd)
{
    Mutator mutator;
    for (int i = 0; i < 300; ++i)
        EXPECT_TRUE(HasErrors(CheckLanguage(mutator.Next(), Strictness::Strict))) << "sections are missing in all";
}

} // namespace korvanel::test
