// FormOpt's controls, one row each in the order of the dump, with the captions they open with;
// their values come from the options (LoadFormOpt). The includer defines the row macros it needs
// (see control.h); the others expand to nothing.
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(id, ...)
#endif
#ifndef VORNA_ARRAY
#define VORNA_ARRAY(id, from, to, ...)
#endif
#ifndef VORNA_ELEMENT
#define VORNA_ELEMENT(id, at, ...)
#endif

// clang-format off

// Shells, widths and the highlight of analogous nodes.
VORNA_CONTROL(CheckSpGus, .caption = "Non visualizzare i gusci con \"spessore di piastra\" sottile")
VORNA_CONTROL(Label1, .caption = "Spessore minimo [cm]:")
VORNA_CONTROL(SpMinGus)
VORNA_CONTROL(Label3, .caption = "Spessore degli elementi non selezionati [pixel]:")
VORNA_CONTROL(SpNonSel)
VORNA_CONTROL(Label2, .caption = "Spessore degli elementi selezionati [pixel]:")
VORNA_CONTROL(SpSel)
VORNA_CONTROL(EvColSel, .caption = "Cambia colore ai nodi analoghi")
VORNA_CONTROL(EvColNonSel, .caption = "Cambia colore ai nodi non analoghi")
VORNA_CONTROL(Label5, .caption = "Raggio di rappresentazione del nodo [pixel]:")
VORNA_CONTROL(Raggio)

// Numbering: which labels, their size, distance and colour.
VORNA_CONTROL(Frame3, .caption = "Numerazione")
VORNA_CONTROL(CheckTxtNodi, .caption = "Nodi")
VORNA_CONTROL(CheckTxtAste, .caption = "Aste")
VORNA_ARRAY(TxtNodi, 0, 1)
VORNA_ELEMENT(TxtNodi, 0, .caption = "Nome (N)")
VORNA_ELEMENT(TxtNodi, 1, .caption = "Vincolo (V)")
VORNA_ARRAY(TxtAste, 0, 4)
VORNA_ELEMENT(TxtAste, 0, .caption = "Nome (A)")
VORNA_ELEMENT(TxtAste, 1, .caption = "Tipo di profilato")
VORNA_ELEMENT(TxtAste, 2, .caption = "Sezione (S)")
VORNA_ELEMENT(TxtAste, 3, .caption = "Orientamento (O)")
VORNA_ELEMENT(TxtAste, 4, .caption = "Svincolo (C)")
VORNA_CONTROL(Label6, .caption = "Base testo [unit\xE0 disegno]:")
VORNA_CONTROL(BaseTxt)
VORNA_CONTROL(Label7, .caption = "Altezza testo [unit\xE0 disegno]:")
VORNA_CONTROL(AltezzaTxt)
VORNA_CONTROL(Label4, .caption = "Distanza tra testo ed elemento [unit\xE0 disegno]:")
VORNA_CONTROL(DistTxt)
VORNA_CONTROL(Label8, .caption = "Colore testo:")
VORNA_ARRAY(LabelCol, 1, kTextSwatches)     // the text colour swatches
VORNA_ARRAY(LabelBordCol, 1, kTextSwatches) // the frame around each, marking the chosen one

// The four highlight colours, each with its "Modifica" button.
VORNA_CONTROL(Label10, .caption = "Colore del nodo base")
VORNA_CONTROL(ColoreNodoBase)
VORNA_CONTROL(Command1, .caption = "Modifica")
VORNA_CONTROL(Label11, .caption = "Colore delle aste del nodo base")
VORNA_CONTROL(ColoreAsteBase)
VORNA_CONTROL(Command2, .caption = "Modifica")
VORNA_CONTROL(Label12, .caption = "Colore delle aste del nodo analogo")
VORNA_CONTROL(ColoreAsteConfl)
VORNA_CONTROL(Command3, .caption = "Modifica")
VORNA_CONTROL(Label9, .caption = "Colore dei nodi analoghi /  non analoghi")
VORNA_CONTROL(ColoreSel)
VORNA_CONTROL(Command4, .caption = "Modifica")

VORNA_CONTROL(Salva, .caption = "Salva")
VORNA_CONTROL(Chiudi, .caption = "Chiudi")

// clang-format on

#undef VORNA_CONTROL
#undef VORNA_ARRAY
#undef VORNA_ELEMENT
