// Draws the fifteen explanatory sketches: five views of each bent type,
// a small JPEG for the sketch window and a full-size TIFF for the
// double-click. Drawn in one logical space so both sizes match.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

enum class Type { Intermediate, WithBackwall, WithoutBackwall };

constexpr double kW = 1200, kH = 800; // logical drawing space

const char* typeName(Type t) {
    switch (t) {
    case Type::Intermediate: return "Pile Intermediate Bent";
    case Type::WithBackwall: return "Pile End Bent with Backwall";
    case Type::WithoutBackwall: return "Pile End Bent without Backwall";
    }
    return "";
}

bool endBent(Type t) { return t != Type::Intermediate; }

class Sketch {
  public:
    explicit Sketch(QPainter& p) : p_(p) {}

    void concrete(const QRectF& r) {
        p_.save();
        p_.setBrush(QColor(225, 225, 225));
        p_.setPen(QPen(Qt::black, 2));
        p_.drawRect(r);
        p_.restore();
    }
    void polygon(const std::vector<QPointF>& pts) {
        p_.save();
        p_.setBrush(QColor(225, 225, 225));
        p_.setPen(QPen(Qt::black, 2));
        p_.drawPolygon(pts.data(), static_cast<int>(pts.size()));
        p_.restore();
    }
    void line(QPointF a, QPointF b, Qt::PenStyle style = Qt::SolidLine, double width = 1.5) {
        p_.save();
        p_.setPen(QPen(Qt::black, width, style));
        p_.drawLine(a, b);
        p_.restore();
    }
    void centerline(QPointF a, QPointF b) { line(a, b, Qt::DashDotLine, 1); }
    void text(QPointF at, const QString& t, int size = 13, bool bold = false, Qt::Alignment align = Qt::AlignLeft) {
        p_.save();
        QFont f(QStringLiteral("DejaVu Sans"), size);
        f.setBold(bold);
        p_.setFont(f);
        QRectF box(at.x(), at.y() - size, 1100, size * 2.2);
        if (align & Qt::AlignHCenter) box.moveLeft(at.x() - 550);
        if (align & Qt::AlignRight) box.moveRight(at.x());
        p_.drawText(box, static_cast<int>(align | Qt::AlignVCenter), t);
        p_.restore();
    }
    // A dimension line with arrows at both ends and its label beside it.
    void dimension(QPointF a, QPointF b, const QString& label, double offset = 18) {
        const QPointF d = b - a;
        const double len = std::hypot(d.x(), d.y());
        if (len < 1) return;
        const QPointF u = d / len, n(-u.y(), u.x());
        const QPointF a2 = a + n * offset, b2 = b + n * offset;
        line(a, a2 + n * 6, Qt::SolidLine, 0.8);
        line(b, b2 + n * 6, Qt::SolidLine, 0.8);
        line(a2, b2, Qt::SolidLine, 1);
        arrow(a2, u);
        arrow(b2, -u);
        const QPointF mid = (a2 + b2) / 2 + n * 16;
        text(mid, label, 11, false, Qt::AlignHCenter);
    }
    void pile(double x, double top, double bottom, double batter = 0) {
        p_.save();
        p_.setPen(QPen(Qt::black, 2));
        p_.setBrush(QColor(200, 200, 200));
        QPolygonF poly({QPointF(x - 10, top), QPointF(x + 10, top), QPointF(x + 10 + batter, bottom),
                        QPointF(x - 10 + batter, bottom)});
        p_.drawPolygon(poly);
        p_.restore();
    }
    void title(Type t, const QString& view) {
        p_.save();
        p_.setPen(QPen(Qt::black, 2));
        p_.drawRect(QRectF(10, 10, kW - 20, kH - 20));
        p_.drawLine(QPointF(10, kH - 70), QPointF(kW - 10, kH - 70));
        p_.restore();
        text(QPointF(30, kH - 45), QString::fromLatin1(typeName(t)) + QStringLiteral(" \u2014 ") + view, 16, true);
        text(QPointF(30, kH - 20), QStringLiteral("Tarnwick \u2014 explanatory sketch, not to scale"), 11);
    }

  private:
    void arrow(QPointF tip, QPointF dir) {
        const QPointF n(-dir.y(), dir.x());
        p_.save();
        p_.setBrush(Qt::black);
        p_.setPen(Qt::NoPen);
        QPolygonF head({tip, tip + dir * 12 + n * 4, tip + dir * 12 - n * 4});
        p_.drawPolygon(head);
        p_.restore();
    }
    QPainter& p_;
};

// Plan of the cap with one beam crossing it at its angle.
void bearingView(Sketch& s, Type t) {
    s.title(t, QStringLiteral("Bearing Dimension and Beam Angle"));
    const QRectF cap(150, 250, 900, 160);
    s.concrete(cap);
    s.text(QPointF(160, 235), QStringLiteral("Front face of cap"), 12);
    s.centerline(QPointF(120, 330), QPointF(1080, 330));
    s.text(QPointF(1000, 345), QStringLiteral("Centerline of bearing"), 11);
    s.line(QPointF(520, 120), QPointF(700, 600), Qt::SolidLine, 3);
    s.line(QPointF(560, 120), QPointF(740, 600), Qt::SolidLine, 3);
    s.centerline(QPointF(540, 100), QPointF(720, 620));
    s.text(QPointF(730, 150), QStringLiteral("Centerline of beam"), 12);
    s.text(QPointF(650, 300), QStringLiteral("Beam angle (deg, min, sec)"), 12);
    s.dimension(QPointF(140, 330), QPointF(140, 250), QStringLiteral(""), -20);
    s.text(QPointF(160, 540), QStringLiteral("Dimension at the left end: front face of cap to center of bearing"), 12);
    s.text(QPointF(160, 470),
           QStringLiteral("Bearing hole: none, dowel bar, or two anchor bolts at the center of the bearing"), 12);
    if (endBent(t)) s.text(QPointF(160, 440), QStringLiteral("Back face of the cap toward the approach fill"), 12);
}

// Plan with the beam centerlines along the cap.
void centerlineBeamView(Sketch& s, Type t) {
    s.title(t, QStringLiteral("Centerline of Beams"));
    const QRectF cap(100, 260, 1000, 150);
    s.concrete(cap);
    const double xs[] = {100, 240, 440, 640, 840, 1100};
    for (int i = 1; i <= 4; ++i) {
        s.centerline(QPointF(xs[i], 200), QPointF(xs[i], 470));
        s.text(QPointF(xs[i], 190), QStringLiteral("Beam %1").arg(i), 12, false, Qt::AlignHCenter);
    }
    for (int i = 0; i < 5; ++i)
        s.dimension(QPointF(xs[i], 410), QPointF(xs[i + 1], 410),
                    i < 4 ? QStringLiteral("Distance %1").arg(i + 1) : QStringLiteral("Remaining distance"), 40);
    s.dimension(QPointF(100, 260), QPointF(1100, 260),
                QStringLiteral("Cap length measured along the front face of the cap"), -60);
    if (endBent(t)) s.text(QPointF(110, 640), QStringLiteral("Wingwalls at both ends of the cap"), 12);
}

// Front elevation of the cap on its piles.
void elevationView(Sketch& s, Type t) {
    s.title(t, QStringLiteral("Elevation"));
    const double bottomL = 470, bottomR = 480;
    std::vector<QPointF> cap = {{150, bottomL}, {1050, bottomR}, {1050, 330}};
    const double steps[] = {330, 320, 310, 320};
    for (int i = 3; i >= 0; --i) {
        cap.push_back({150 + 225.0 * (i + 1), steps[i]});
        cap.push_back({150 + 225.0 * i, steps[i]});
    }
    s.polygon(cap);
    for (int i = 0; i < 4; ++i)
        s.text(QPointF(150 + 225.0 * i + 112, steps[i] - 22), QStringLiteral("Step elevation %1").arg(i + 1), 11, false,
               Qt::AlignHCenter);
    for (double x : {250.0, 450.0, 650.0, 850.0, 1000.0})
        s.pile(x, 472, 640);
    s.text(QPointF(150, bottomL + 30), QStringLiteral("Bottom left cap elevation"), 11);
    s.text(QPointF(1050, bottomR + 30), QStringLiteral("Bottom right cap elevation"), 11, false, Qt::AlignRight);
    if (endBent(t)) {
        s.polygon({{40, 200}, {150, 250}, {150, 470}, {40, 420}});
        s.polygon({{1050, 250}, {1160, 200}, {1160, 420}, {1050, 470}});
        s.text(QPointF(30, 560), QStringLiteral("Top of left wingwall: at the front face / at the end"), 11);
        s.text(QPointF(1170, 560), QStringLiteral("Top of right wingwall: at the front face / at the end"), 11, false,
               Qt::AlignRight);
    }
    if (t == Type::WithBackwall) {
        s.concrete(QRectF(150, 150, 900, 60));
        s.concrete(QRectF(150, 120, 60, 90));
        s.concrete(QRectF(990, 120, 60, 90));
        s.text(QPointF(600, 140), QStringLiteral("Backwall: inside face left / centerline of bent / inside face right"),
               11, false, Qt::AlignHCenter);
        s.text(QPointF(160, 100), QStringLiteral("Top of left end post"), 11);
        s.text(QPointF(1040, 100), QStringLiteral("Top of right end post"), 11, false, Qt::AlignRight);
    }
}

// Plan with the centerline of bent, piles, battered piles and pile boxes.
void centerlinesView(Sketch& s, Type t) {
    s.title(t, QStringLiteral("Centerlines"));
    const QRectF cap(200, 280, 800, 140);
    s.concrete(cap);
    s.centerline(QPointF(150, 350), QPointF(1050, 350));
    s.text(QPointF(1050, 262), QStringLiteral("Centerline of bent"), 12, false, Qt::AlignRight);
    for (double x : {260.0, 420.0, 580.0, 740.0, 900.0}) {
        s.centerline(QPointF(x, 250), QPointF(x, 450));
        s.line(QPointF(x - 12, 338), QPointF(x + 12, 362));
        s.line(QPointF(x - 12, 362), QPointF(x + 12, 338));
    }
    s.text(QPointF(260, 470), QStringLiteral("Pile centerlines"), 12);
    if (!endBent(t)) return;
    s.text(QPointF(420, 240), QStringLiteral("Battered piles drawn at the ends"), 12);
    // Wingwalls with their pile boxes, numbered from the front face of the cap.
    for (double y : {280.0, 420.0}) {
        const double dir = y < 350 ? -1 : 1;
        s.polygon({{200, y}, {80, y + dir * 180}, {120, y + dir * 180}, {200, y + dir * 40}});
        for (int k = 1; k <= 3; ++k) {
            const QPointF box(200 - k * 28, y + dir * (k * 48));
            s.line(box - QPointF(8, 8), box + QPointF(8, 8));
            s.line(box - QPointF(8, -8), box + QPointF(8, -8));
            s.text(box + QPointF(14, 0), QStringLiteral("%1").arg(k), 11);
        }
    }
    s.text(QPointF(260, 560),
           QStringLiteral("Pile boxes 1, 2, 3 along each wingwall: the distances asked are from "
                          "the front face of the cap"),
           12);
    s.text(QPointF(260, 585), QStringLiteral("to the centerline of the second and of the third pile box."), 12);
}

// Section through the cap.
void dimensionView(Sketch& s, Type t) {
    s.title(t, QStringLiteral("Dimensions"));
    const QRectF cap(350, 300, 300, 200);
    s.concrete(cap);
    s.pile(500, 500, 650);
    s.dimension(QPointF(350, 300), QPointF(650, 300), QStringLiteral("Cap width"), -30);
    s.dimension(QPointF(650, 300), QPointF(650, 500), QStringLiteral("Minimum cap depth"), -40);
    if (endBent(t)) {
        s.polygon({{650, 300}, {740, 300}, {650, 390}});
        s.text(QPointF(760, 320), QStringLiteral("Fillet: transverse width (vertical leg) and longitudinal"), 11);
        s.text(QPointF(760, 342), QStringLiteral("width (horizontal leg, perpendicular to the back face"), 11);
        s.text(QPointF(760, 364), QStringLiteral("paving rest)"), 11);
        s.text(QPointF(80, 600), QStringLiteral("Wingwall length: from the cap to the end of the wingwall"), 12);
    }
    if (t == Type::WithBackwall) {
        s.concrete(QRectF(560, 160, 90, 140));
        s.text(QPointF(660, 170), QStringLiteral("Backwall"), 12);
        s.text(QPointF(80, 630), QStringLiteral("End post: width and length"), 12);
    }
}

struct Output {
    const char* small;
    const char* full;
    std::function<void(Sketch&, Type)> draw;
    Type type;
};

void render(const Output& o, const QString& path, int width) {
    QImage img(width, static_cast<int>(width * kH / kW), QImage::Format_RGB32);
    img.fill(Qt::white);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(width / kW, width / kW);
    Sketch s(p);
    o.draw(s, o.type);
    p.end();
    const bool tiff = path.endsWith(QStringLiteral(".tif"));
    if (!img.save(path, tiff ? "TIFF" : "JPEG", tiff ? -1 : 90))
        std::fprintf(stderr, "tarnwick-sketches: cannot write %s\n", qPrintable(path));
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: tarnwick-sketches OUTPUT_FOLDER\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(out.path());
    using T = Type;
    const std::vector<Output> outputs = {
        {"bdapb", "bdapb", bearingView, T::Intermediate},
        {"bdawbw", "bdawbw", bearingView, T::WithBackwall},
        {"bdawobw", "bdawobw", bearingView, T::WithoutBackwall},
        {"cbpb", "cbpb", centerlineBeamView, T::Intermediate},
        {"cbwbw", "", centerlineBeamView, T::WithBackwall},
        {"cbwobw", "cbwobw", centerlineBeamView, T::WithoutBackwall},
        {"epb", "epb", elevationView, T::Intermediate},
        {"ewbw", "ewbw", elevationView, T::WithBackwall},
        {"ewobw", "ewobw", elevationView, T::WithoutBackwall},
        {"cpb", "cpb", centerlinesView, T::Intermediate},
        {"cwbw", "cwbw", centerlinesView, T::WithBackwall},
        {"cwobw", "cwobw", centerlinesView, T::WithoutBackwall},
        {"bdpb", "bdpb", dimensionView, T::Intermediate},
        {"bdwbw", "bdwbw", dimensionView, T::WithBackwall},
        {"bdwobw", "bdwobw", dimensionView, T::WithoutBackwall},
    };
    for (const auto& o : outputs) {
        render(o, out.filePath(QString::fromLatin1(o.small) + QStringLiteral(".jpg")), 600);
        if (*o.full) render(o, out.filePath(QString::fromLatin1(o.full) + QStringLiteral(".tif")), 2400);
    }
    return 0;
}
