// Text dumps of the program's state for the script runner: one line per value, fixed order.
#include "app/dump.h"

#include "app/draw_input.h"
#include "platform/number_text.h"
#include "platform/text.h"

#include <algorithm>

namespace vorna {

void DumpFolders(const Program &p, std::ostream &out) {
    const Folders &f = p.folders;
    out << "rootFolder=" << Cp1252ToUtf8(f.rootFolder) << '\n'
        << "jobsFolder=" << Cp1252ToUtf8(f.jobsFolder) << '\n'
        << "jobName=" << Cp1252ToUtf8(f.jobName) << '\n'
        << "jobFolder=" << Cp1252ToUtf8(f.jobFolder) << '\n'
        << "programsFolder=" << Cp1252ToUtf8(f.programsFolder) << '\n'
        << "customFolder=" << Cp1252ToUtf8(f.customFolder) << '\n';
}

void DumpOptions(const Program &p, std::ostream &out) {
    for (int k = 1; k <= kDisplayOptionCount; ++k) {
        const OptionValue &v = p.displayOptions.values[k];
        out << "display " << k << '='
            << (v.kind == OptionValue::Kind::Unset ? "unset" : Cp1252ToUtf8(v.Text())) << '\n';
    }
    for (int k = 1; k <= kInternalOptionCount; ++k)
        out << "internal " << k << '=' << NumberText(p.internalOptions.values[k]) << '\n';
}

void DumpModel(const Program &p, std::ostream &out) {
    const StructureModel &m = p.model;
    out << "model points=" << m.pointCount << " nodes=" << m.nodeCount << " bars=" << m.barCount
        << " shells=" << m.shellCount << " thicknessCards=" << m.thicknessCardCount << '\n';
    for (int i = 0; i < m.pointCount; ++i) {
        const Point &q = m.points[i];
        out << "point " << i << " x=" << NumberText(q.x) << " y=" << NumberText(q.y)
            << " z=" << NumberText(q.z) << '\n';
    }
    for (int i = 0; i < m.nodeCount; ++i) {
        const Node &n = m.nodes[i];
        out << "node " << i << " pointIndex=" << n.pointIndex << " pointType=" << n.pointType
            << " colour=" << n.colour << " name=" << n.name
            << " constraintCard=" << n.constraintCard << '\n';
    }
    for (int i = 0; i < m.barCount; ++i) {
        const Bar &b = m.bars[i];
        out << "bar " << i << " pointI=" << b.pointI << " pointJ=" << b.pointJ
            << " lineType=" << b.lineType << " colour=" << b.colour << " name=" << b.name
            << " sectionCard=" << b.sectionCard << " releaseCard=" << b.releaseCard
            << " orientationCard=" << b.orientationCard << '\n';
    }
    for (int i = 0; i < m.shellCount; ++i) {
        const Shell &s = m.shells[i];
        out << "shell " << i << " vertices=" << s.vertices[0] << ',' << s.vertices[1] << ','
            << s.vertices[2] << ',' << s.vertices[3] << " name=" << s.name
            << " thicknessCard=" << s.thicknessCard << " colour=" << s.colour << '\n';
    }
    for (int k = 0; k < kSectionNameCapacity; ++k)
        if (!m.sectionNames[k].empty())
            out << "section " << k << " name=" << Cp1252ToUtf8(m.sectionNames[k]) << '\n';
    for (int k = 0; k < m.thicknessCardCount; ++k)
        out << "thickness " << k << " value=" << NumberText(m.thicknessValues[k]) << '\n';
}

} // namespace vorna

namespace vorna {
namespace {

std::string Flag(bool on) {
    return on ? "1" : "0";
}

std::string WindowText(const ViewWindow &w) {
    return NumberText(w.xMax) + ',' + NumberText(w.xMin) + ',' + NumberText(w.yMax) + ',' +
           NumberText(w.yMin);
}

template <typename Names> std::string Joined(int count, Names name) {
    std::string text;
    for (int k = 0; k < count; ++k)
        text += (k ? "," : "") + std::to_string(name(k));
    return text;
}

void DumpControl(std::ostream &out, std::string_view name, const Control &c) {
    const std::string n(name);
    out << n << ".caption=" << Cp1252ToUtf8(c.caption) << '\n'
        << n << ".text=" << Cp1252ToUtf8(c.text) << '\n'
        << n << ".checked=" << Flag(c.checked) << '\n'
        << n << ".enabled=" << Flag(c.enabled) << '\n'
        << n << ".visible=" << Flag(c.visible) << '\n'
        << n << ".tooltip=" << Cp1252ToUtf8(c.tooltip) << '\n';
}

} // namespace

void DumpControls(Program &p, std::ostream &out) {
    ForEachControl(p.form, [&](std::string_view name, Control &c) { DumpControl(out, name, c); });
    out << "FormVorna.caption=" << Cp1252ToUtf8(p.form.caption) << '\n';
}

void DumpDialogControls(Dialog &dialog, std::ostream &out) {
    dialog.ForEachControl([&](std::string_view name, Control &c) { DumpControl(out, name, c); });
    out << dialog.Name() << ".caption=" << Cp1252ToUtf8(dialog.Caption()) << '\n';
}

void DumpListRows(std::string_view name, const Control &list, std::ostream &out) {
    for (std::size_t r = 0; r < list.items.size(); ++r) {
        std::string row = list.items[r];
        std::replace(row.begin(), row.end(), '\t', '|');
        out << name << '(' << r + 1 << ")=" << Cp1252ToUtf8(row) << '\n';
    }
}

void DumpBuffers(const Program &p, std::ostream &out) {
    const DrawBuffers &b = p.buffers;
    out << "buffers coordinates=" << b.coordX.size() << " lines=" << b.lines.size()
        << " arcs=" << b.arcs.size() << " texts=" << b.texts.size() << '\n';
}

void DumpView(const Program &p, std::ostream &out) {
    const ViewState &v = p.view;
    out << "angles=" << Cp1252ToUtf8(p.form.Angolo[0].text) << ','
        << Cp1252ToUtf8(p.form.Angolo[1].text) << ',' << Cp1252ToUtf8(p.form.Angolo[2].text) << '\n'
        << "zoomWindow=" << WindowText(v.zoomWindow) << '\n'
        << "shownWindow=" << WindowText(v.shownWindow) << '\n'
        << "viewScale=" << NumberText(v.viewScale) << '\n';
    const StructureModel &m = p.model;
    for (int i = 0; i < m.nodeCount; ++i) {
        int q = m.nodes[i].pointIndex;
        out << "node " << i << " x=" << NumberText(ProjectedXOf(v, q))
            << " y=" << NumberText(ProjectedYOf(v, q)) << " shown=" << Flag(v.nodeShown[i]) << '\n';
    }
    for (int i = 0; i < m.barCount; ++i) {
        const Bar &b = m.bars[i];
        out << "bar " << i << " x1=" << NumberText(ProjectedXOf(v, b.pointI))
            << " y1=" << NumberText(ProjectedYOf(v, b.pointI))
            << " x2=" << NumberText(ProjectedXOf(v, b.pointJ))
            << " y2=" << NumberText(ProjectedYOf(v, b.pointJ)) << " shown=" << Flag(v.barShown[i])
            << '\n';
    }
}

void DumpConnection(const Program &p, std::ostream &out) {
    const ConnectionState &c = p.connection;
    const StructureModel &m = p.model;
    auto nodeName = [&](int node) {
        return node >= 0 && node < m.nodeCount ? m.nodes[node].name : 0;
    };
    auto barName = [&](int bar) { return bar >= 0 && bar < m.barCount ? m.bars[bar].name : 0; };
    int bars = std::min<int>(c.baseBarCount, kMaxBaseBars);
    out << "baseNode="
        << (c.baseNode < 0 ? std::string("none") : std::to_string(nodeName(c.baseNode))) << '\n'
        << "baseBars=" << Joined(bars, [&](int k) { return barName(c.baseBars[k]); }) << '\n'
        << "baseBarTypes=" << Joined(bars, [&](int k) { return c.baseBarTypes[k]; }) << '\n';
    for (std::size_t r = 0; r < c.analogousNodes.size(); ++r) {
        const AnalogousNode &a = c.analogousNodes[r];
        out << "record " << r + 1 << " node=" << nodeName(a.node)
            << " bars=" << Joined(a.barCount, [&](int k) { return barName(a.bars[k]); })
            << " types=" << Joined(a.barCount, [&](int k) { return a.barTypes[k]; }) << '\n';
    }
    out << "analogousListText=" << Cp1252ToUtf8(c.analogousListText) << '\n';
}

void DumpNodeColours(const Program &p, std::ostream &out) {
    const DrawInput in = DrawInputOf(p);
    for (int i = 0; i < p.model.nodeCount; ++i) {
        if (!IsLive(p.model.nodes[i]) || !p.view.nodeShown[i])
            continue;
        const Rgb rgb = NodeDrawnColour(in, i);
        out << "nodecolour node=" << p.model.nodes[i].name << " rgb=" << (rgb & 255) << ','
            << (rgb >> 8 & 255) << ',' << (rgb >> 16 & 255) << '\n';
    }
}

} // namespace vorna
