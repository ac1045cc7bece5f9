// All the state of one run of the program: model, options, view, connection and the window
// as data. One object per run; no globals.
#pragma once

#include "app/folders.h"
#include "app/form_vorna.h"
#include "connection/connection_state.h"
#include "model/structure_model.h"
#include "options/options.h"
#include "options/tolerances.h"
#include "platform/canvas.h"
#include "platform/ui.h"
#include "projection/navigation_state.h"
#include "projection/view_state.h"
#include "selection/command_state.h"
#include "view/draw_buffers.h"
#include "view/render.h"

#include <memory>
#include <string>
#include <vector>

namespace vorna {

// The toolkit the front end runs on, for "Informazioni su vorna": none in vorna-batch.
struct Toolkit {
    std::string qtVersion; // "6.4.2"; empty without Qt
    bool qtStatic = false; // Qt linked into the program rather than loaded from the system
};

struct Program {
    Program(Ui &ui_, Canvas &disegno_, Canvas &picture1_)
        : ui(ui_), disegno(disegno_), picture1(picture1_) {}

    Ui &ui;
    Canvas &disegno;  // the 3D view
    Canvas &picture1; // the base-node schema

    Folders folders;
    DisplayOptions displayOptions;
    InternalOptions internalOptions;
    StructureModel model;
    bool structureLoaded = false;

    StrokeFont font;
    DrawBuffers buffers;
    ViewState view;
    NavigationState navigation;
    ConnectionInput input;
    ConnectionState connection;
    Tolerances tolerances; // in force, from TolAngoli and TolLunghezze
    CommandState command;
    FormVorna form = InitialForm();
    // Each node's fill by joint type while "Colora i tipi nel disegno" is checked; else empty.
    std::vector<std::uint32_t> jointTypeFills;
    // The joint the review of the list looks at while it is open.
    LookedAtJoint lookedAt;

    Toolkit toolkit;

    bool exitRequested = false;
    int exitStatus = 0;
};

// Ends the program once control is back in the front end: 0 after a normal end, 1 after a
// fatal start-up message.
void EndProgram(Program &program, int status);
// A message the core handed back, in a box with OK.
void ShowMessage(Program &program, const UserMessage &message);

} // namespace vorna
