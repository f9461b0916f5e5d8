#pragma once

#include "startup/RunContext.h"

// The computed reports. Each reads the run's data file and the conditions that are named with it, and fills
// the view; nothing is stored. Whatever period is chosen, the figures are those of the ledger's first month.
// None traps an error: a failing statement or a division by zero is raised.
namespace zelkor {

struct ReportConditions;
struct ReportView;

// What the assets are worth, by usage status, category and department.
void BuildStatusAnalysis(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildValueStructure(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildTypeComposition(RunContext& run, const ReportConditions& conditions, ReportView& view);
/// The level of categories is a caption only.
void BuildDeptComposition(RunContext& run, const ReportConditions& conditions, ReportView& view);
/// Condition: the layout. The levels are captions only.
void BuildAssetStatistics(RunContext& run, const ReportConditions& conditions, ReportView& view);
/// Condition: the two levels choose the departments.
void BuildValueOverview(RunContext& run, const ReportConditions& conditions, ReportView& view);

// Ledgers, line by line. Conditions: a department, a category.
void BuildDeptTypeLedger(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildRegisterBook(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildCardLedger(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildGeneralLedger(RunContext& run, const ReportConditions& conditions, ReportView& view);

// Depreciation.
void BuildDeprSummary(RunContext& run, const ReportConditions& conditions, ReportView& view);
void BuildAssetDeprTable1(RunContext& run, const ReportConditions& conditions, ReportView& view);
/// Condition: a category.
void BuildAssetDeprTable2(RunContext& run, const ReportConditions& conditions, ReportView& view);
/// Condition: a department, without those below it.
void BuildDeprDetail(RunContext& run, const ReportConditions& conditions, ReportView& view);

}  // namespace zelkor
