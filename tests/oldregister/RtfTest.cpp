#include "oldregister/Rtf.h"

#include "report/StoredText.h"

#include <gtest/gtest.h>

using namespace oldregister;

TEST(Rtf, BecomesTheEditorsText) {
    struct Case {
        const char* name;
        QString old;
        QString stored;
    };
    const auto rtf = [](const QString& body) {
        return QStringLiteral("{\\rtf1\\ansi\\ansicpg1250\\deff0{\\fonttbl{\\f0\\fnil\\fcharset238{"
                              "\\*\\fname Arial;}Arial CE;}{\\f1\\fcharset204 Arial;}"
                              "{\\f2\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl ;\\red255;}\r\n"
                              "\\viewkind4\\uc1\\pard\\f0\\fs17 ") +
               body + QStringLiteral("\r\n}\r\n\0");
    };
    const Case cases[] = {
        {"empty", rtf(QStringLiteral("\\par")), QStringLiteral("")},
        {"paragraphs", rtf(QStringLiteral("a \\par\r\n\\par b\\par")),
         QStringLiteral("<p>a </p><p></p><p>b</p>")},
        {"no last end", rtf(QStringLiteral("a\\par b")), QStringLiteral("<p>a</p><p>b</p>")},
        {"marks", rtf(QStringLiteral("\\b a\\i b\\b0 c\\i0\\ul d{\\b e}\\ulnone f\\plain g\\par")),
         QStringLiteral("<p><b>a</b><b><i>b</i></b><i>c</i><u>d</u><b><u>e</u></b>fg</p>")},
        {"bytes", rtf(QStringLiteral("\\'8eia\\'9d, \\f1\\'e6\\f0 \\'be\\par")),
         QStringLiteral("<p>Žiať, жľ</p>")},
        {"Unicode",
         rtf(QStringLiteral("\\u269\\'e8\\u1046?\\u-3913?x\\uc2\\u945ab\\uc0\\u946 c"
                            "\\uc1\\u55357?\\u56832?\\par")),
         QStringLiteral("<p>čЖ\xf0b7xαβc😀</p>")},
        {"signs", rtf(QStringLiteral("\\{a\\}\\tab\\\\\\~\\line <&>\\endash\\par")),
         QStringLiteral("<p>{a}\t\\\x00a0<br>&lt;&amp;&gt;–</p>")},
        {"bullets",
         rtf(QStringLiteral(
             "{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}a\\par\r\n"
             "{\\pntext\\f2\\'B7\\tab}b\\par\r\n\\pard c\\par")),
         QStringLiteral("<ul><li>a</li><li>b</li></ul><p>c</p>")},
        {"numbers", rtf(QStringLiteral("{\\pntext\\f0 1.\\tab}{\\*\\pn\\pndec{\\pntxta.}}a\\par")),
         QStringLiteral("<p>1.\ta</p>")},
        {"pictures and tables",
         rtf(QStringLiteral("a{\\pict\\wmetafile8 0100ff\\bin4 }}{\\}b{\\field{\\*\\fldinst X}{"
                            "\\fldrslt c}}\\trowd d\\cell e\\cell\\row f\\par")),
         QStringLiteral("<p>abcd\te\t</p><p>f</p>")},
        {"broken", QStringLiteral("{\\rtf1\\ansi\\b }}}a{{{\\b0 b\\'zz\\u"),
         QStringLiteral("<p>ab'zz</p>")},
        {"words behind the end", rtf(QStringLiteral("a\\par")) + QStringLiteral("b"),
         QStringLiteral("<p>a</p><p>b</p>")},
        {"short", QStringLiteral("{\\rtf1 a}"), QStringLiteral("<p>a</p>")},
        {"none", QStringLiteral("{\\rtf1 je sk\\'fdatka"),
         QStringLiteral("{\\rtf1 je sk\\'fdatka")},
        {"none, too", QStringLiteral("{\\rtfm} a"), QStringLiteral("{\\rtfm} a")},
        {"plain", QStringLiteral(" a <b>\r\n{b "), QStringLiteral(" a <b>\r\n{b ")},
        {"a sign alone", QStringLiteral("<5 rokov"), QStringLiteral("<5 rokov")},
        {"plain like a page", QStringLiteral("<html> a"), QStringLiteral("<p>&lt;html&gt; a</p>")},
        {"plain like HTML", QStringLiteral("<P>a & b\r\nc"),
         QStringLiteral("<p>&lt;P&gt;a &amp; b</p><p>c</p>")}};
    for (const auto& [name, old, stored] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(toStoredText(old).toStdString(), stored.toStdString());
        if (isRtf(old)) {
            EXPECT_EQ(report::storedText(report::readStored(stored)), stored);
        }
    }
}
