#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "reports/ReportConditions.h"

namespace zelkor {

/// In twips.
struct DialogSize {
  int height;
  int width;
};

/// What a page asks for, in this order, and how it looks. Every page asks for a period first.
struct PageConditions {
  const char* frame;
  DialogSize size;
  bool range = false;
  bool type = false;
  bool department = false;
  LevelRange ReportConditions::*levels = nullptr;
  const char* levelsCaption = "";
  const char* between = "----";  // the two lists of a range
};

/// One row for each page.
inline constexpr std::array<PageConditions, 14> kConditionPages{{
    {.frame = "Frame21", .size = {3900, 3840}},
    {.frame = "Frame22", .size = {2760, 5190}},
    {.frame = "Frame1",
     .size = {3375, 5640},
     .levels = &ReportConditions::departmentRange,
     .levelsCaption = "汇总部门："},
    {.frame = "Frame2", .size = {4900, 5865}},
    {.frame = "Frame3", .size = {3015, 5565}, .range = true},
    {.frame = "Frame40", .size = {3465, 6000}, .range = true, .type = true},
    {.frame = "Frame41", .size = {4095, 5685}, .department = true},
    {.frame = "Frame42", .size = {3480, 5415}, .type = true},
    {.frame = "Frame43", .size = {3255, 5250}, .range = true, .type = true, .department = true},
    {.frame = "Frame44", .size = {5145, 5520}, .range = true, .type = true, .department = true},
    {.frame = "Frame45",
     .size = {3360, 5415},
     .range = true,
     .type = true,
     .department = true,
     .between = ""},
    {.frame = "Frame5", .size = {3255, 5250}, .range = true, .type = true, .between = ""},
    {.frame = "Frame6",
     .size = {3375, 5640},
     .department = true,
     .levels = &ReportConditions::typeRange,
     .levelsCaption = "类别级次：",
     .between = ""},
    {.frame = "Frame7",
     .size = {3375, 5640},
     .range = true,
     .levels = &ReportConditions::periodTypeRange,
     .levelsCaption = "汇总类别：",
     .between = ""},
}};

constexpr const PageConditions& conditionsOf(ConditionPage page) {
  return kConditionPages[numberOf(page)];
}

/// What is chosen in the period list of that number, counted over the lists of all pages.
const std::string& periodInList(const ReportConditions& conditions, std::size_t list);

}  // namespace zelkor
