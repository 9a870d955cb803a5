#include <gtest/gtest.h>

#include "platform/CException.h"
#include "platform/CString.h"

namespace {

TEST(CStringTest, EightBitTextConvertsAsUTF8BothWays) {
    CString s("Gr\xC3\xBC\xC3\x9F \xE2\x82\xAC");  // "Grüß €"
    EXPECT_EQ(s.GetLength(), 6);
    EXPECT_EQ(s[2], L'\u00FC');
    EXPECT_EQ(s[5], L'\u20AC');
    EXPECT_EQ(s.ToUTF8(), "Gr\xC3\xBC\xC3\x9F \xE2\x82\xAC");
    CString bad("a\xFF" "b");
    EXPECT_EQ(bad.GetLength(), 3);
    EXPECT_EQ(bad[1], (wchar_t)0xFFFD);
}

TEST(CStringTest, FormatTakesWideStringsForPercentS) {
    CString s;
    s.Format(L"%s=%d (%c)", L"x", 42, L'q');
    EXPECT_EQ(s, CString(L"x=42 (q)"));
    s.AppendFormat(L" %.2f", 1.5);
    EXPECT_EQ(s, CString(L"x=42 (q) 1.50"));
    CString longer;
    longer.Format(L"%0600d", 7);
    EXPECT_EQ(longer.GetLength(), 600);
}

TEST(CStringTest, SubstringsClampAndSearchesReportMinusOne) {
    CString s(L"abcabc");
    EXPECT_EQ(s.Left(2), CString(L"ab"));
    EXPECT_EQ(s.Right(10), s);
    EXPECT_EQ(s.Mid(4), CString(L"bc"));
    EXPECT_EQ(s.Mid(10, 2), CString());
    EXPECT_EQ(s.Find(L'c'), 2);
    EXPECT_EQ(s.Find(L"ca"), 2);
    EXPECT_EQ(s.Find(L'z'), -1);
    EXPECT_EQ(s.ReverseFind(L'a'), 3);
    EXPECT_EQ(s.Replace(L"b", L"XY"), 2);
    EXPECT_EQ(s, CString(L"aXYcaXYc"));
    EXPECT_THROW(s.GetAt(8), CInvalidArgException);
}

TEST(CStringTest, CaseAndTrim) {
    CString s(L"  MiXed\t");
    s.Trim();
    EXPECT_EQ(s, CString(L"MiXed"));
    EXPECT_EQ(s.CompareNoCase(L"mixed"), 0);
    EXPECT_NE(s.Compare(L"mixed"), 0);
    EXPECT_EQ(CString(s).MakeUpper(), CString(L"MIXED"));
}

}  // namespace
