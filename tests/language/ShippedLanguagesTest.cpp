// The languages that come with the program.
#include "language/LanguageCheckFixture.h"
#include "support/TestPaths.h"

#include <QDir>

namespace korvanel::test {

TEST(ShippedLanguagesTest, EachIsCompleteAndWithoutFault)
{
    const QDir folder(QStringLiteral(KORVANEL_LANGUAGES));
    const QStringList files = folder.entryList({QStringLiteral("*.lng")}, QDir::Files);
    EXPECT_TRUE(files.contains("english.lng"));
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        const std::optional<QByteArray> content = ReadLanguageContent(folder.filePath(file));
        ASSERT_TRUE(content.has_value());
        EXPECT_THAT(CheckLanguage(*content), ::testing::IsEmpty());
    }
}

} // namespace korvanel::test
