#pragma once

#include "report/Layout.h"

#include <QStringView>

#include <array>

namespace statreturn {

/// A caption of the report's footer and the column whose total it shows.
struct TotalLabel {
    QStringView control;
    QStringView column;
};

/// In the order of the printed columns 1 to 22. Label89 stands before Label88.
inline constexpr std::array<TotalLabel, 22> vekTotals{{
    {u"Label68", u"spolu"},     {u"Label69", u"spolu_zeny"}, {u"Label70", u"p_autiz"},
    {u"Label71", u"p_autiz_z"}, {u"Label72", u"p_menta"},    {u"Label73", u"p_menta_z"},
    {u"Label74", u"p_sluch"},   {u"label75", u"p_sluch_z"},  {u"Label76", u"p_zrak"},
    {u"Label77", u"p_zrak_z"},  {u"label78", u"p_rec"},      {u"label79", u"p_rec_z"},
    {u"label80", u"p_teles"},   {u"label81", u"p_teles_z"},  {u"label82", u"p_viacn"},
    {u"label83", u"p_viacn_z"}, {u"label84", u"p_vpsp"},     {u"label85", u"p_vpsp_z"},
    {u"Label86", u"p_vpuc"},    {u"label87", u"p_vpuc_z"},   {u"label89", u"p_ine"},
    {u"label88", u"p_ine_z"},
}};

/// The printed form of Table I with the return's head, one page of A4 landscape.
report::Layout rptVek();

} // namespace statreturn
