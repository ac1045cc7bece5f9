// Moving around the demo job from a script: standard views, finding a node, orbiting with the
// right button, keys, rectangles dragged out, and the wheel about the cursor.
#include "app/script_runner.h"
#include "e2e_support.h"

#include <cmath>
#include <map>
#include <sstream>

namespace vorna {
namespace {

struct View {
    std::string angles;
    std::array<double, 4> zoom{}, shown{}; // xMax, xMin, yMax, yMin
    double scale = 0;                      // twips per unit
    std::map<int, std::pair<double, double>> nodes;
};

std::array<double, 4> Window(const std::string &text) {
    std::array<double, 4> w{};
    std::istringstream in(text);
    for (double &v : w) {
        in >> v;
        in.ignore(1);
    }
    return w;
}

// The last `dump view` of a script's output.
View LastView(const std::string &out) {
    View v;
    std::istringstream in(out);
    for (std::string line; std::getline(in, line);) {
        if (line.rfind("angles=", 0) == 0)
            v = View{line.substr(7), {}, {}, 0, {}};
        else if (line.rfind("zoomWindow=", 0) == 0)
            v.zoom = Window(line.substr(11));
        else if (line.rfind("shownWindow=", 0) == 0)
            v.shown = Window(line.substr(12));
        else if (line.rfind("viewScale=", 0) == 0)
            v.scale = std::stod(line.substr(10));
        else if (int i = 0; std::sscanf(line.c_str(), "node %d x=", &i) == 1) {
            double x = 0, y = 0;
            std::sscanf(line.c_str(), "node %*d x=%lf y=%lf", &x, &y);
            v.nodes[i] = {x, y};
        }
    }
    return v;
}

struct Navigation : testing::Test {
    test::DemoSuite suite;
    // Runs the script after a first redraw, which gives the headless drawing its size and scale.
    std::string Run(const std::string &script) {
        suite.Write("nav.script", "Ridis\n" + script);
        std::ostringstream out;
        EXPECT_EQ(RunScript(suite.root() / "nav.script", "|diroot=" + suite.rootName() + "|", out),
                  0)
            << out.str();
        return out.str();
    }
    // Drawing units per pixel at a view's scale (15 twips a pixel).
    static double UnitsPerPixel(const View &v) { return 15 / v.scale; }
};

TEST_F(Navigation, StandardViewsShowTheNamedModelPlane) {
    std::istringstream model(Run("dump model\n"));
    std::map<int, std::array<double, 3>> points;
    for (std::string line; std::getline(model, line);) {
        int i = 0;
        double x = 0, y = 0, z = 0;
        if (std::sscanf(line.c_str(), "point %d x=%lf y=%lf z=%lf", &i, &x, &y, &z) == 4)
            points[i] = {x, y, z};
    }
    // The demo's node i sits on point i.
    struct Case {
        const char *item;
        int right, up; // model axes: 0 x, 1 y, 2 z
        const char *angles;
    };
    for (const Case &c : {Case{"VistaPianta", 0, 1, "90,0,0"}, Case{"VistaFronte", 0, 2, "0,0,0"},
                          Case{"VistaLato", 1, 2, "0,90,0"}}) {
        const View v = LastView(Run("Ridis\nZoomIn\n" + std::string(c.item) + "\ndump view\n"));
        EXPECT_EQ(v.angles, c.angles) << c.item;
        EXPECT_EQ(v.zoom, (std::array<double, 4>{})) << c.item << " fits";
        const auto &[x0, y0] = v.nodes.at(0);
        for (const auto &[i, at] : v.nodes) {
            EXPECT_NEAR(at.first - x0, points[i][c.right] - points[0][c.right], 1e-3) << c.item;
            EXPECT_NEAR(at.second - y0, points[i][c.up] - points[0][c.up], 1e-3) << c.item;
        }
    }
    EXPECT_EQ(LastView(Run("VistaPianta\nVistaAssonometria\ndump view\n")).angles, "30,30,0");
}

TEST_F(Navigation, FindANodeZoomsOntoItOrSaysItIsNotThere) {
    const View fitted = LastView(Run("dump view\n"));
    const View found = LastView(Run("TrovaNodo\nset Risposta 18\nkey Enter\ndump view\n"));
    const auto [x, y] = fitted.nodes.at(17);
    EXPECT_NEAR((found.zoom[0] + found.zoom[1]) / 2, x, 1e-6);
    EXPECT_NEAR((found.zoom[2] + found.zoom[3]) / 2, y, 1e-6);
    // A tenth of the fitted view: its extent, the window without its margin.
    const double fittedWidth = (fitted.shown[0] - fitted.shown[1]) / 1.21;
    EXPECT_NEAR(found.zoom[0] - found.zoom[1], fittedWidth / 10, 1e-6 * fittedWidth);

    const std::string out = Run("TrovaNodo\nset Risposta 9999\nkey Enter\ndump view\n");
    EXPECT_NE(out.find("message|MESSAGGIO|64|Nodo 9999 non trovato\n"), std::string::npos) << out;
    EXPECT_EQ(LastView(out).zoom, fitted.zoom);
}

TEST_F(Navigation, ARightDragOrbitsAndARightClickPopsUpTheMenu) {
    const View start = LastView(Run("dump view\n"));
    const double px = UnitsPerPixel(start);
    const auto [x, y] = start.nodes.at(17); // the node named 18
    auto at = [&](double dx, double dy) {
        std::ostringstream s;
        s.precision(17);
        s << x + dx * px << ' ' << y + dy * px;
        return s.str();
    };
    // 20 pixels right and 10 up: αy + 10, αx + 5; the view stays fitted.
    const std::string orbit = Run("down " + at(0, 0) + " 2\nmove " + at(20, 10) + " 2\nup " +
                                  at(20, 10) + " 2\ndump view\n");
    EXPECT_EQ(LastView(orbit).angles, "35,40,0");
    EXPECT_EQ(LastView(orbit).zoom, (std::array<double, 4>{}));
    EXPECT_EQ(orbit.find("popup|"), std::string::npos);
    // Shift + middle drag orbits the same way.
    EXPECT_EQ(LastView(Run("down " + at(0, 0) + " 4 1\nmove " + at(-6, 0) + " 4 1\nup " +
                           at(-6, 0) + " 4 1\ndump view\n"))
                  .angles,
              "30,27,0");
    // Less than 4 pixels is a click: the menu, and the view as it was.
    const std::string click =
        Run("down " + at(0, 0) + " 2\nmove " + at(2, 2) + " 2\nup " + at(2, 2) + " 2\ndump view\n");
    EXPECT_NE(click.find("popup|Visualizza\n"), std::string::npos);
    EXPECT_EQ(LastView(click).angles, "30,30,0");
}

// A gesture in a script is what a mouse does: however many moves it takes, each is read in the
// units the press saw, so the drag ends where its one-move form does.
TEST_F(Navigation, AGestureOfManyMovesIsItsOneMoveForm) {
    const View start = LastView(Run("dump view\n"));
    const double px = UnitsPerPixel(start);
    const auto [x, y] = start.nodes.at(17);
    auto drag = [&](const std::string &before, int steps, double dx, double dy,
                    const std::string &button) {
        std::ostringstream s;
        s.precision(17);
        s << before << "down " << x << ' ' << y << ' ' << button << '\n';
        for (int k = 1; k <= steps; ++k)
            s << "move " << x + dx * px * k / steps << ' ' << y + dy * px * k / steps << ' '
              << button << '\n';
        s << "up " << x + dx * px << ' ' << y + dy * px << ' ' << button << "\ndump view\n";
        return LastView(Run(s.str()));
    };
    // 100 pixels across turn αy by 50°, in one move or in four.
    EXPECT_EQ(drag("", 1, 100, 0, "2").angles, "30,80,0");
    EXPECT_EQ(drag("", 4, 100, 0, "2").angles, "30,80,0");
    EXPECT_EQ(drag("", 2, -40, 60, "4 1").angles, drag("", 1, -40, 60, "4 1").angles);
    EXPECT_EQ(drag("", 5, 70, -30, "4").zoom, drag("", 1, 70, -30, "4").zoom);
    EXPECT_EQ(drag("ZoomIn\n", 3, 90, 50, "1").zoom, drag("ZoomIn\n", 1, 90, 50, "1").zoom);
}

TEST_F(Navigation, KeysTurnZoomAndFit) {
    EXPECT_EQ(LastView(Run("key Left\nkey Left\nkey Up\ndump view\n")).angles, "45,0,0");
    EXPECT_EQ(LastView(Run("key Right\nkey Down\ndump view\n")).angles, "15,45,0");
    const View wheel = LastView(Run("wheel 1\ndump view\n"));
    const View page = LastView(Run("key PageUp\ndump view\n"));
    EXPECT_EQ(page.zoom, wheel.zoom);
    EXPECT_EQ(LastView(Run("key PageUp\nkey PageDown\nkey Home\ndump view\n")).zoom,
              (std::array<double, 4>{}));
}

TEST_F(Navigation, ARectangleDraggedOutIsTheTwoClicksRectangle) {
    const View v = LastView(Run("dump view\n"));
    const double px = UnitsPerPixel(v);
    std::ostringstream corners;
    corners.precision(17);
    // Nearly the whole picture: the identical joints of the demo are in it.
    corners << v.shown[1] + 2 * px << ' ' << v.shown[2] - 2 * px << ' ' << v.shown[0] - 2 * px
            << ' ' << v.shown[3] + 2 * px;
    std::istringstream in(corners.str());
    std::string x1, y1, x2, y2;
    in >> x1 >> y1 >> x2 >> y2;
    const std::string base = "NodoBase\nclicknode 18\nAggiungi\nFinestra\n";
    const std::string clicks = Run(base + "click " + x1 + " " + y1 + "\nmove " + x2 + " " + y2 +
                                   "\nclick " + x2 + " " + y2 + "\ndump connection\n");
    const std::string drag = Run(base + "down " + x1 + " " + y1 + "\nmove " + x2 + " " + y2 +
                                 " 1\nup " + x2 + " " + y2 + "\ndump connection\n");
    EXPECT_EQ(clicks.find("analogousListText=18\n"), std::string::npos) << "nothing selected";
    EXPECT_EQ(drag, clicks);
    // The zoom rectangle likewise.
    const std::string zoomClicks = Run("ZoomIn\nclick " + x1 + " " + y1 + "\nmove " + x2 + " " +
                                       y2 + "\nclick " + x2 + " " + y2 + "\ndump view\n");
    const std::string zoomDrag = Run("ZoomIn\ndown " + x1 + " " + y1 + "\nmove " + x2 + " " + y2 +
                                     " 1\nup " + x2 + " " + y2 + "\ndump view\n");
    EXPECT_NE(LastView(zoomDrag).zoom, (std::array<double, 4>{}));
    EXPECT_EQ(LastView(zoomDrag).zoom, LastView(zoomClicks).zoom);
}

TEST_F(Navigation, CtrlWheelKeepsThePointUnderTheCursor) {
    const View before = LastView(Run("wheel 2\ndump view\n"));
    const auto [x, y] = before.nodes.at(17);
    std::ostringstream at;
    at.precision(17);
    at << x << ' ' << y;
    for (const char *steps : {"1", "-2"}) {
        const View after = LastView(
            Run("wheel 2\nwheel " + std::string(steps) + " " + at.str() + " 2\ndump view\n"));
        EXPECT_NEAR((x - after.shown[1]) / (after.shown[0] - after.shown[1]),
                    (x - before.shown[1]) / (before.shown[0] - before.shown[1]), 1e-9);
        EXPECT_NEAR((y - after.shown[3]) / (after.shown[2] - after.shown[3]),
                    (y - before.shown[3]) / (before.shown[2] - before.shown[3]), 1e-9);
    }
    // Without Ctrl the wheel keeps zooming about the centre.
    EXPECT_EQ(LastView(Run("wheel 1 " + at.str() + "\ndump view\n")).zoom,
              LastView(Run("wheel 1\ndump view\n")).zoom);
}

} // namespace
} // namespace vorna
