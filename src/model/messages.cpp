// The fixed message texts that several parts of the program show, named by what they say.
#include "model/messages.h"

namespace vorna {

// Windows-1252 text, like every other text of the program: "\xE0" is the accented a.
std::string_view MessageText(Msg message) {
    switch (message) {
    case Msg::TooManyThicknessCards:
        return " Troppe schede di spessore ";
    case Msg::TooManySectionCards:
        return " Troppe schede di sezione ";
    case Msg::CannotReadFile:
        return " Impossibile leggere il file ";
    case Msg::OptionsNotSaved:
        return " Problemi nel salvataggio delle opzioni ";
    case Msg::OptionsSaved:
        return " Opzioni salvate ";
    case Msg::CannotWriteOutput:
        return " Non \xE8 possibile scrivere il file di uscita ";
    case Msg::NoDirectPickWithoutBox:
        return " Se la dimensione della trappola \xE8 nulla la selezione diretta non \xE8 "
               "possibile ";
    case Msg::SelectionTooLong:
        return " La stringa di selezione comprende troppi elementi ";
    case Msg::DropsAnalogousNodes:
        return " Questa operazione canceller\xE0 tutti i nodi analoghi selezionati ";
    case Msg::TooManyBaseBars:
        return " Numero eccessivo di potenziali aste base ";
    case Msg::TooManyBarTypes:
        return " Numero eccessivo di tipi asta ";
    }
    return {};
}

} // namespace vorna
