// "Tipi di nodo": the catalogue of the joint types of the model under the analogy parameters in
// force, shown in a modal dialog; "Usa" makes the chosen type the connection.
#pragma once

#include "app/program.h"
#include "connection/joint_types.h"
#include "platform/dialog.h"

namespace vorna {

struct FormTipiNodo {
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#include "app/joint_types_controls.h"
};

class JointTypesDialog : public Dialog {
public:
    JointTypesDialog(Program &program, JointTypeCatalogue catalogue);

    std::string_view Name() const override { return "FormTipiNodo"; }
    std::string_view Caption() const override { return "Tipi di nodo"; }
    void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) override;
    void Click(std::string_view control) override;
    void Paint(std::string_view picture, Canvas &canvas) override;
    bool Dump(std::string_view what, std::ostream &out) override;

    // The 0-based type chosen with "Usa", or -1.
    int chosen = -1;
    const JointTypeCatalogue &Catalogue() const { return catalogue_; }

private:
    int Selected() const; // 0-based row, -1 for none
    // The fills of the program and the swatches of the rows follow ColoraTipi; the view is
    // drawn again.
    void ColourTypes();
    // "Esporta CSV...": the catalogue into the file the user chooses.
    void ExportCsv();

    Program &p_;
    JointTypeCatalogue catalogue_;
    FormTipiNodo form_;
};

// The command "Tipi di nodo...".
void TipiNodo_Click(Program &program);

} // namespace vorna
