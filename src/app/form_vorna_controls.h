// FormVorna's controls, menus and icon-bar buttons, one row each in the order of the dump. The
// includer defines the row macros it needs (see control.h and form_vorna.h); the others expand
// to nothing. Adding a menu item is one VORNA_MENU_ITEM row and its handler.
#ifndef VORNA_CONTROL
#define VORNA_CONTROL(name, ...)
#endif
#ifndef VORNA_ARRAY
#define VORNA_ARRAY(name, first, last, ...)
#endif
#ifndef VORNA_ELEMENT
#define VORNA_ELEMENT(name, index, ...)
#endif
#ifndef VORNA_MENU
#define VORNA_MENU(name, caption)
#endif
#ifndef VORNA_SUBMENU
#define VORNA_SUBMENU(name, parent, caption)
#endif
#ifndef VORNA_MENU_ITEM
#define VORNA_MENU_ITEM(name, menu, caption, shortcut, run, ...)
#endif
#ifndef VORNA_COMMAND
#define VORNA_COMMAND(name, caption, run)
#endif
#ifndef VORNA_BUTTON
#define VORNA_BUTTON(key, bar, tooltip, run)
#endif
#ifndef VORNA_BUTTON_GAP
#define VORNA_BUTTON_GAP(bar)
#endif

// clang-format off

// The icon bar and its buttons in bar order: files and exit, view, selection, side bar.
VORNA_CONTROL(Toolbar1)
VORNA_BUTTON(ImportaTutto, Toolbar1, "Importa geometria e sollecitazioni", Salva_Click)
VORNA_BUTTON(ImportaGeom, Toolbar1, "Importa geometria", SalvaGeom_Click)
VORNA_BUTTON(ImportaSoll, Toolbar1, "Importa sollecitazioni", SalvaSoll_Click)
VORNA_BUTTON(Esci, Toolbar1, "Esci", Esci_Click)
VORNA_BUTTON_GAP(Toolbar1)
VORNA_BUTTON(Ottimizza, Toolbar1, "Ottimizza", Ottimizza_Click)
VORNA_BUTTON(Zoom, Toolbar1, "Zoom", ZoomIn_Click)
VORNA_BUTTON(Sposta, Toolbar1, "Sposta", Sposta_Click)
VORNA_BUTTON(Ridisegna, Toolbar1, "Ridisegna", Ridis_Click)
VORNA_BUTTON_GAP(Toolbar1)
VORNA_BUTTON(Aggiungi, Toolbar1, "Aggiungi nodi", Aggiungi_Click)
VORNA_BUTTON(Rimuovi, Toolbar1, "Rimuovi nodi", Rimuovi_Click)
VORNA_BUTTON(RimuoviTutto, Toolbar1, "Rimuovi tutti i nodi", RimTutto_Click)
VORNA_BUTTON(InvertiSel, Toolbar1, "Inverti selezione nodi", Inverti_Click)
VORNA_BUTTON(Interrompi, Toolbar1, "Interrompi", Interrompi_Click)
VORNA_BUTTON_GAP(Toolbar1)
VORNA_BUTTON(AggiungiBarraLat, Toolbar1, "Attiva o disattiva la barra laterale", BarraLat_Click)

// The answer line, and the drawing surface with its overlays. The overlays are in Disegno's
// drawing units; the line LineSposta keeps its start in left/top and its end in width/height.
VORNA_CONTROL(FrameInput)
VORNA_CONTROL(Domanda, .caption = "###")
VORNA_CONTROL(Risposta, .enabled = false, .backColour = kButtonFaceColour)
VORNA_CONTROL(Disegno)
VORNA_CONTROL(LineSposta, .visible = false)
VORNA_CONTROL(Shape, .visible = false)

// Analogy parameters.
VORNA_CONTROL(FrameSel, .caption = "Parametri di analogia")
VORNA_ARRAY(OpzMetodo, 0, 3)
VORNA_ELEMENT(OpzMetodo, 0, .caption = "Nodi identici", .checked = true)
VORNA_ELEMENT(OpzMetodo, 1, .caption = "Nodi identici e simmetrici")
VORNA_ELEMENT(OpzMetodo, 2, .caption = "Nodi identici e ruotati")
VORNA_ELEMENT(OpzMetodo, 3, .caption = "Nodi qualsiasi")
VORNA_CONTROL(analLun, .caption = "Lungh. delle aste", .checked = true)
VORNA_CONTROL(AnalSezAste, .caption = "Sezioni delle aste")
VORNA_CONTROL(AnalColAste, .caption = "Colore delle aste")
VORNA_CONTROL(analLinAste, .caption = "Tipo linea delle aste")
// The tolerances within which bars count as alike; both empty or 0: the exact test.
VORNA_CONTROL(TolAngoli, .caption = "Toll. angoli (\xB0)")
VORNA_CONTROL(TolLunghezze, .caption = "Toll. lunghezze (%)")

// View filters.
VORNA_CONTROL(FrameAtt, .caption = "Elementi attivati")
VORNA_CONTROL(NodiAtt, .caption = "Nodi", .checked = true)
VORNA_CONTROL(AsteAtt, .caption = "Aste", .checked = true)
VORNA_CONTROL(GusciAtt, .caption = "Gusci", .checked = true)
VORNA_CONTROL(ElSelez, .caption = "Nodi analoghi", .checked = true)
VORNA_CONTROL(ElNonSelez, .caption = "Nodi non analoghi", .checked = true)
VORNA_ARRAY(Label3, 0, 3)
VORNA_ELEMENT(Label3, 0, .caption = "Intervalli di coordinate")
VORNA_ELEMENT(Label3, 1, .caption = "X")
VORNA_ELEMENT(Label3, 2, .caption = "Y")
VORNA_ELEMENT(Label3, 3, .caption = "Z")
VORNA_ARRAY(IntX, 0, 1)
VORNA_ARRAY(IntY, 0, 1)
VORNA_ARRAY(IntZ, 0, 1)
VORNA_ARRAY(Label4, 0, 2, .caption = "-") // between the interval boxes
VORNA_COMMAND(TuttoX, "Tutto", TuttoX_Click)
VORNA_COMMAND(TuttoY, "Tutto", TuttoY_Click)
VORNA_COMMAND(TuttoZ, "Tutto", TuttoZ_Click)

// Base-node schema and its bar-type labels.
VORNA_CONTROL(Label7, .caption = "Schema del nodo base")
VORNA_CONTROL(Picture1)
VORNA_ARRAY(LabelTipo, 1, 30, .visible = false)

// View angles.
VORNA_ARRAY(Label1, 0, 2, .caption = "a")
VORNA_ARRAY(Label2, 0, 2)
VORNA_ELEMENT(Label2, 0, .caption = "x")
VORNA_ELEMENT(Label2, 1, .caption = "y")
VORNA_ELEMENT(Label2, 2, .caption = "z")
VORNA_ARRAY(Angolo, 0, 2)
VORNA_ELEMENT(Angolo, 0, .text = "30")
VORNA_ELEMENT(Angolo, 1, .text = "30")
VORNA_ELEMENT(Angolo, 2, .text = "0")

// Status line.
VORNA_CONTROL(Label5, .caption = "Risultato della selezione:")
VORNA_CONTROL(StringaSel)
VORNA_CONTROL(Line2)
VORNA_ARRAY(Frame2, 0, 1)
VORNA_CONTROL(FunAttiva, .caption = "###")
VORNA_CONTROL(SottoFunAttiva, .caption = "###")
VORNA_CONTROL(FrameCoord)
VORNA_CONTROL(Label6, .caption = "Coordinate:")
VORNA_CONTROL(LabCoord, .caption = "0, 0")
// The verdict of the last node offered alone, in the free left part of the coordinate frame.
VORNA_CONTROL(Esito)

// The menus and their items.
VORNA_MENU(File, "&File")
VORNA_MENU_ITEM(Salva, File, "&Importa geometria e sollecitazioni", "Ctrl+G", Salva_Click)
VORNA_MENU_ITEM(SalvaGeom, File, "Importa &geometria", "", SalvaGeom_Click)
VORNA_MENU_ITEM(SalvaSoll, File, "Importa &sollecitazioni", "", SalvaSoll_Click)
VORNA_MENU_ITEM(ScriColl, File, "Esporta &collegamento", "", ScriColl_Click)
VORNA_MENU_ITEM(SalvaDisegno, File, "Salva &disegno...", "F2", SalvaDisegno_Click)
VORNA_MENU_ITEM(Esci, File, "&Esci", "Ctrl+E", Esci_Click)
VORNA_MENU(Visualizza, "&Visualizza")
VORNA_MENU_ITEM(Ottimizza, Visualizza, "&Ottimizza", "Ctrl+O", Ottimizza_Click)
VORNA_MENU_ITEM(ZoomIn, Visualizza, "&Zoom", "Ctrl+Z", ZoomIn_Click)
VORNA_MENU_ITEM(Sposta, Visualizza, "&Sposta", "Ctrl+S", Sposta_Click)
VORNA_MENU_ITEM(Ridis, Visualizza, "&Ridisegna", "Ctrl+R", Ridis_Click)
VORNA_MENU_ITEM(VistaPianta, Visualizza, "&Pianta", "Ctrl+1", VistaPianta_Click)
VORNA_MENU_ITEM(VistaFronte, Visualizza, "Prospetto &frontale", "Ctrl+2", VistaFronte_Click)
VORNA_MENU_ITEM(VistaLato, Visualizza, "Prospetto &laterale", "Ctrl+3", VistaLato_Click)
VORNA_MENU_ITEM(VistaAssonometria, Visualizza, "&Assonometria", "Ctrl+4", VistaAssonometria_Click)
VORNA_MENU_ITEM(TrovaNodo, Visualizza, "&Trova nodo...", "Ctrl+F", TrovaNodo_Click)
VORNA_MENU(Operazioni, "&Operazioni")
VORNA_MENU_ITEM(NodoBase, Operazioni, "&Scegli nodo base", "Ctrl+N", NodoBase_Click)
VORNA_MENU_ITEM(RimNodoBase, Operazioni, "Ri&muovi nodo base", "", RimNodoBase_Click)
VORNA_MENU_ITEM(AsteNodoBase, Operazioni, "Rimuovi aste &base", "Ctrl+B", AsteNodoBase_Click)
VORNA_MENU_ITEM(Aggiungi, Operazioni, "&Aggiungi nodi", "Ctrl+A", Aggiungi_Click)
VORNA_MENU_ITEM(Rimuovi, Operazioni, "&Rimuovi nodi", "Ctrl+T", Rimuovi_Click)
VORNA_MENU_ITEM(RimTutto, Operazioni, "Ri&muovi tutti i nodi", "", RimTutto_Click)
VORNA_MENU_ITEM(Inverti, Operazioni, "In&verti selezione nodi", "", Inverti_Click)
VORNA_MENU_ITEM(EvidTipo, Operazioni, "&Evidenzia tipo aste", "", EvidTipo_Click)
VORNA_MENU_ITEM(TipiNodo, Operazioni, "Tipi di no&do...", "", TipiNodo_Click)
VORNA_MENU_ITEM(PercheNo, Operazioni, "&Perch\xE9 no?...", "", PercheNo_Click)
VORNA_MENU_ITEM(Revisione, Operazioni, "Revisione &nodi analoghi...", "Ctrl+L", Revisione_Click, .enabled = false)
VORNA_MENU_ITEM(Interrompi, Operazioni, "&Interrompi", "", Interrompi_Click)
VORNA_MENU(Selezioni, "&Selezioni")
VORNA_MENU_ITEM(Finestra, Selezioni, "&Finestra", "", Finestra_Click)
VORNA_SUBMENU(Colore, Selezioni, "&Colore")
VORNA_MENU_ITEM(Bianco, Colore, "Bianco", "", [](Program &p) { ColourCommand(p, 1); })
VORNA_MENU_ITEM(Blu, Colore, "Blu", "", [](Program &p) { ColourCommand(p, 2); })
VORNA_MENU_ITEM(Rosso, Colore, "Rosso", "", [](Program &p) { ColourCommand(p, 3); })
VORNA_MENU_ITEM(Verde, Colore, "Verde", "", [](Program &p) { ColourCommand(p, 4); })
VORNA_MENU_ITEM(Giallo, Colore, "Giallo", "", [](Program &p) { ColourCommand(p, 5); })
VORNA_MENU_ITEM(VerdeScuro, Colore, "Verde scuro", "", [](Program &p) { ColourCommand(p, 6); })
VORNA_MENU_ITEM(Magenta, Colore, "Magenta", "", [](Program &p) { ColourCommand(p, 7); })
VORNA_MENU_ITEM(Azzurro, Colore, "Azzurro", "", [](Program &p) { ColourCommand(p, 8); })
VORNA_MENU_ITEM(Ara, Colore, "Arancione", "", [](Program &p) { ColourCommand(p, 9); })
VORNA_MENU_ITEM(TuttiCol, Colore, "Tutti", "", [](Program &p) { ColourCommand(p, kAllCodes); })
VORNA_SUBMENU(TipoPunto, Selezioni, "Tipo &punto")
VORNA_MENU_ITEM(TipoPt1, TipoPunto, "1", "", [](Program &p) { PointTypeCommand(p, 0); })
VORNA_MENU_ITEM(TipoPt2, TipoPunto, "2", "", [](Program &p) { PointTypeCommand(p, 1); })
VORNA_MENU_ITEM(TipoPt3, TipoPunto, "3", "", [](Program &p) { PointTypeCommand(p, 2); })
VORNA_MENU_ITEM(TipoPt4, TipoPunto, "4", "", [](Program &p) { PointTypeCommand(p, 3); })
VORNA_MENU_ITEM(TuttiPt, TipoPunto, "Tutti", "", [](Program &p) { PointTypeCommand(p, kAllCodes); })
VORNA_MENU_ITEM(SchVincolo, Selezioni, "Vincolo", "", SchVincolo_Click)
VORNA_MENU_ITEM(Nome, Selezioni, "N&ome elemento", "", Nome_Click)
VORNA_MENU_ITEM(Tutto, Selezioni, "T&utto", "", Tutto_Click)
VORNA_MENU(Opzioni, "Op&zioni")
VORNA_MENU_ITEM(VisCoord, Opzioni, "&Visualizza Coordinate", "", VisCoord_Click, .checked = true)
VORNA_MENU_ITEM(VisAssi, Opzioni, "Visualizza &Assi", "", VisAssi_Click, .checked = true)
VORNA_MENU_ITEM(BarraLat, Opzioni, "&Barra laterale", "", BarraLat_Click, .checked = true)
VORNA_MENU_ITEM(BarraIcone, Opzioni, "Barra delle &icone", "", BarraIcone_Click, .checked = true)
VORNA_MENU_ITEM(Trappola, Opzioni, "&Trappola...", "", Trappola_Click)
VORNA_MENU_ITEM(Rappresentazione, Opzioni, "O&pzioni...", "", Rappresentazione_Click)
VORNA_MENU(MenuAiuto, "?")
VORNA_MENU_ITEM(Comandi, MenuAiuto, "Comandi di mouse e tastiera", "F1", Comandi_Click)
VORNA_MENU_ITEM(Informazioni, MenuAiuto, "Informazioni su vorna", "", Informazioni_Click)

// clang-format on

#undef VORNA_CONTROL
#undef VORNA_ARRAY
#undef VORNA_ELEMENT
#undef VORNA_MENU
#undef VORNA_SUBMENU
#undef VORNA_MENU_ITEM
#undef VORNA_COMMAND
#undef VORNA_BUTTON
#undef VORNA_BUTTON_GAP
