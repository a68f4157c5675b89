// SPDX-License-Identifier: Apache-2.0
// What the checker's report says, as plain data: the title block, every
// input of the form with its prompt, value and unit, grouped as the form
// groups them, and the bent table. Which sections and rows apply is what the
// form shows for this bent type and these options once they are on it; the
// painter only lays out. No form is needed to make one.
#pragma once

#include "core/model/Controls.h"
#include "core/model/Measures.h"

#include <array>
#include <string>
#include <vector>

namespace tw {

class Project;

struct ReportRow {
    CtlId field; // the input (an angle's degrees)
    std::string prompt, value, unit;
    bool shown = true; // the form shows this row's field
};

struct ReportSection {
    std::string title;
    std::vector<ReportRow> rows;
    bool shown = true; // the form shows the section (and some row of it)
};

struct Report {
    std::string program; // "Norvale-Tarnwick 1.0.0"
    std::array<std::string, 3> projectInfo;
    std::string path; // the project's file, as given
    // Where the values come from, when it is not the file as it stands: the
    // form with changes not saved, in words; empty for a report of the file.
    std::string source;
    // Every section of the form in the form's order, hidden ones marked so.
    std::vector<ReportSection> sections;
    // The bent table: column headings, then one row per bent; column 0 is the bent number.
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> bents;
    // The unit of each column of the bent table, under its heading; none for the bent number.
    std::vector<std::string> headingUnits;
    // How the drawings read lengths (View > Units, or `report --units`).
    LengthUnits units = LengthUnits::FeetInches;
};

// The report of a project, read from `path`; in feet and inches until the
// caller says otherwise.
Report buildReport(const Project& p, const std::string& path);

// The words a report of a form holding unsaved changes carries: `lastSaved`
// is when its file was last written ("HH:MM"), empty for a form never saved.
std::string unsavedSource(const std::string& path, const std::string& lastSaved);

} // namespace tw
