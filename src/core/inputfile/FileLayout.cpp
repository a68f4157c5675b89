// SPDX-License-Identifier: Apache-2.0
#include "core/inputfile/FileLayout.h"

#include "core/model/Choices.h"
#include "core/model/Columns.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

namespace tw {

namespace {

// From the eleventh beam on, per-beam values continue on a second line.
constexpr int kValuesPerLine = 10;

class Layout {
  public:
    Layout(const Project& project, FileWalk& w) : project_(project), w_(w) {}

    bool walk() {
        for (int i = 0; i < 3; ++i)
            w_.title(i);
        record100();
        // What record "100" says decides the rest.
        type_ = bentTypeOf(project_.text(Ctl::cboTybent));
        beams_ = project_.beams();
        record200();
        perBeam("300", "301", Ctl::txtCapStep);
        for (int r = 1; r <= w_.bents(); ++r)
            record400(r);
        perBeam("500", "501", Ctl::txtCenterline);
        record600();
        record700();
        if (!endBent()) return true;
        if (!record800()) return false;
        for (int r = 1; r <= w_.bents(); ++r)
            record900(r);
        return true;
    }

  private:
    bool endBent() const { return type_ && isEndBent(*type_); }

    void record100() {
        w_.record("100 ");
        w_.code(Ctl::cboDrScale);
        w_.bentCount();
        w_.count(Ctl::cboNoBeam);
        w_.code(Ctl::cboBentDrawn);
        w_.code(Ctl::cboBSkew);
        w_.batteredCount();
        w_.code(Ctl::cboTybent);
        for (Ctl c :
             {Ctl::cboAngleType, Ctl::cboWingParallel, Ctl::cboTPLwinwall, Ctl::cboTPRwingwall, Ctl::cboBatterPile})
            w_.code(c);
        w_.number(Ctl::txtCapLength);
        w_.number(CtlId(Ctl::txtCenterline, 20));
        w_.number(CtlId(Ctl::txtBatterPile, 6));
        w_.end();
    }

    void record200() {
        w_.record("200");
        w_.number(Ctl::txtCapWidth);
        w_.number(Ctl::txtCapDepth);
        w_.code(Ctl::cboBearingHole);
        w_.number(Ctl::txtCenterlineDistance);
        if (type_ != BentType::Intermediate) { // the fillets
            w_.number(Ctl::txtTransWidth);
            w_.number(Ctl::txtLongWidth);
        }
        w_.end();
    }

    void perBeam(const char* first, const char* next, Ctl array) {
        w_.record(first);
        for (int i = 0; i < beams_; ++i) {
            if (i == kValuesPerLine) {
                w_.end();
                w_.record(next);
            }
            w_.number(CtlId(array, i));
        }
        w_.end();
    }

    void record400(int r) {
        w_.beginRow(r);
        w_.record("400");
        w_.bentNumber(r);
        for (int c = 1; c <= 2; ++c)
            w_.cell(r, c, columnSource(BentType::Intermediate, beams_, c));
        for (int k = 0; k < beams_; ++k) {
            if (k == kValuesPerLine) {
                w_.end();
                // Fourteen blanks after "401": the continued steps stand under the first line's.
                w_.record("401");
                w_.blanks(14);
            }
            w_.cell(r, 3 + k, CtlId(Ctl::txtEStepPI, k));
        }
        w_.end();
        w_.endRow(r);
    }

    void record600() {
        w_.record("600");
        if (project_.text(Ctl::cboAngleType) == "No")
            for (int k = 0; k < beams_; ++k)
                for (Ctl part : {Ctl::txtBeamangleH, Ctl::txtBeamangleM, Ctl::txtBeamangleS})
                    w_.number(CtlId(part, k));
        w_.end();
    }

    void record700() {
        w_.record("700");
        w_.code(Ctl::cboTypeOfPile);
        w_.code(Ctl::cboStrirrups);
        if (endBent()) {
            const int n = w_.batteredSpacings();
            for (int i = 0; i < n && i < 6; ++i)
                w_.number(CtlId(Ctl::txtBatterPile, i));
        }
        w_.end();
    }

    void angle(Ctl a) {
        for (int i = 0; i < 3; ++i)
            w_.number(CtlId(a, i));
    }

    bool record800() {
        w_.record("800");
        w_.number(Ctl::txtWidthEndPost);
        w_.number(Ctl::txtLengthEndPost);
        w_.number(Ctl::txtWingwallLength);
        angle(Ctl::txtWinLAngle);
        // Nine blanks where the right angle's eight columns would stand: the
        // pile-box count of parallel wingwalls stands one column further right.
        const bool parallel = project_.text(Ctl::cboWingParallel) == "Yes";
        if (parallel)
            w_.blanks(9);
        else
            angle(Ctl::txtWinRAngle);
        w_.pileBoxCount();
        const std::string boxes = trim(project_.text(Ctl::cboWingwallPileBox));
        if (boxes == "2") w_.number(Ctl::txtPileBoxDistance1);
        if (boxes == "3") {
            if (parallel && !w_.pileBoxCheck()) return false;
            w_.number(Ctl::txtPileBoxDistance1);
            w_.number(Ctl::txtPileBoxDistance2);
        }
        w_.end();
        return true;
    }

    void record900(int r) {
        w_.record("900");
        for (int offset : endBentFileColumns(type_ == BentType::EndWithBackwall))
            w_.cell(r, beams_ + offset, columnSource(*type_, beams_, beams_ + offset));
        w_.end();
    }

    const Project& project_;
    FileWalk& w_;
    std::optional<BentType> type_;
    int beams_ = 0;
};

} // namespace

bool walkInputFile(const Project& project, FileWalk& walk) { return Layout(project, walk).walk(); }

} // namespace tw
