#include "oldregister/Rtf.h"

#include "report/StoredText.h"

#include <gtest/gtest.h>

using namespace oldregister;
using namespace Qt::StringLiterals;

TEST(Rtf, BecomesTheEditorsText) {
    struct Case {
        const char* name;
        QString old;
        QString stored;
    };
    const auto rtf = [](const QString& body) {
        return u"{\\rtf1\\ansi\\ansicpg1250\\deff0{\\fonttbl{\\f0\\fnil\\fcharset238{"
               "\\*\\fname Arial;}Arial CE;}{\\f1\\fcharset204 Arial;}"
               "{\\f2\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl ;\\red255;}\r\n"
               "\\viewkind4\\uc1\\pard\\f0\\fs17 "_s +
               body + u"\r\n}\r\n\0"_s;
    };
    const Case cases[] = {
        {"empty", rtf(u"\\par"_s), u""_s},
        {"paragraphs", rtf(u"a \\par\r\n\\par b\\par"_s), u"<p>a </p><p></p><p>b</p>"_s},
        {"no last end", rtf(u"a\\par b"_s), u"<p>a</p><p>b</p>"_s},
        {"marks", rtf(u"\\b a\\i b\\b0 c\\i0\\ul d{\\b e}\\ulnone f\\plain g\\par"_s),
         u"<p><b>a</b><b><i>b</i></b><i>c</i><u>d</u><b><u>e</u></b>fg</p>"_s},
        {"bytes", rtf(u"\\'8eia\\'9d, \\f1\\'e6\\f0 \\'be\\par"_s), u"<p>Žiať, жľ</p>"_s},
        {"Unicode",
         rtf(u"\\u269\\'e8\\u1046?\\u-3913?x\\uc2\\u945ab\\uc0\\u946 c"
             "\\uc1\\u55357?\\u56832?\\par"_s),
         u"<p>čЖ\xf0b7xαβc😀</p>"_s},
        {"signs", rtf(u"\\{a\\}\\tab\\\\\\~\\line <&>\\endash\\par"_s),
         u"<p>{a}\t\\\x00a0<br>&lt;&amp;&gt;–</p>"_s},
        {"bullets",
         rtf(u"{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}a\\par\r\n"
             "{\\pntext\\f2\\'B7\\tab}b\\par\r\n\\pard c\\par"_s),
         u"<ul><li>a</li><li>b</li></ul><p>c</p>"_s},
        {"numbers", rtf(u"{\\pntext\\f0 1.\\tab}{\\*\\pn\\pndec{\\pntxta.}}a\\par"_s),
         u"<p>1.\ta</p>"_s},
        {"pictures and tables",
         rtf(u"a{\\pict\\wmetafile8 0100ff\\bin4 }}{\\}b{\\field{\\*\\fldinst X}{"
             "\\fldrslt c}}\\trowd d\\cell e\\cell\\row f\\par"_s),
         u"<p>abcd\te\t</p><p>f</p>"_s},
        {"broken", u"{\\rtf1\\ansi\\b }}}a{{{\\b0 b\\'zz\\u"_s, u"<p>ab'zz</p>"_s},
        {"words behind the end", rtf(u"a\\par"_s) + u"b"_s, u"<p>a</p><p>b</p>"_s},
        {"short", u"{\\rtf1 a}"_s, u"<p>a</p>"_s},
        {"none", u"{\\rtf1 je sk\\'fdatka"_s, u"{\\rtf1 je sk\\'fdatka"_s},
        {"none, too", u"{\\rtfm} a"_s, u"{\\rtfm} a"_s},
        {"plain", u" a <b>\r\n{b "_s, u" a <b>\r\n{b "_s},
        {"a sign alone", u"<5 rokov"_s, u"<5 rokov"_s},
        {"plain like a page", u"<html> a"_s, u"<p>&lt;html&gt; a</p>"_s},
        {"plain like HTML", u"<P>a & b\r\nc"_s, u"<p>&lt;P&gt;a &amp; b</p><p>c</p>"_s}};
    for (const auto& [name, old, stored] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(toStoredText(old).toStdString(), stored.toStdString());
        if (isRtf(old)) {
            EXPECT_EQ(report::storedText(report::readStored(stored)), stored);
        }
    }
}
