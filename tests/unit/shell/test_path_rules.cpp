#include "shell/path_rules.h"

#include <gtest/gtest.h>

using namespace norvane;
using namespace Qt::StringLiterals;

namespace {

TEST(PathRules, ATitleBecomesANameThatAFileMayHave)
{
    EXPECT_EQ(proposedFileName(u"1/2: \"What?\" v1.5"_s), u"1 2   What   v1 5"_s);
    EXPECT_EQ(proposedFileName(u"a\r\nb\tc"_s), u"a  b c"_s);
    const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
    const QString many = proposedFileName(smile.repeated(127));
    EXPECT_LE(many.toUtf8().size(), 251);
    EXPECT_EQ(many, smile.repeated(60)) << "no half letters";
    EXPECT_EQ(proposedFileName(QString(255, u'x')).size(), 240);
}

} // namespace
