// Where the rows come from: the database, the query text, the host's image list, and how a
// field value becomes a number or a text.
#include <algorithm>
#include <cctype>

#include "grid/control_state.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {

namespace {
std::string Lowered(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(), [](unsigned char c) { return std::tolower(c); });
    return out;
}
}  // namespace

std::string Tabulon12::Impl::ConnectText() const { return Password.empty() ? std::string() : "; pwd=" + Password; }

std::shared_ptr<Database> Tabulon12::Impl::OpenDatabase(const std::string& connect) {
    std::shared_ptr<Database> db;
    Step(err, [&] {
        if (host.engine == nullptr) throw Error::MissingObject();
        OpenOptions options;
        options.exclusive = false;
        options.readOnly = true;
        options.connect = connect;
        db = host.engine->OpenDatabase(DataBaseName, options);
    });
    return db;
}

std::string Tabulon12::Impl::AssembleQuery() const {
    std::string order, direction;
    if (!CampoOrdinamentoAttivo.empty()) {
        order = " ORDER BY " + CampoOrdinamentoAttivo;
        if (OrdinamentoDiscendente) direction = " DESC";
    }
    return QueryCaricamento + order + direction;
}

std::shared_ptr<HostControl> Tabulon12::Impl::TrovaImageList(const std::string& name) const {
    if (name.empty()) return nullptr;
    const std::string wanted = Lowered(name);
    auto search = [&](const HostForm& form) -> std::shared_ptr<HostControl> {
        for (const auto& control : form.Controls())
            if (control && Lowered(control->Name()) == wanted) return control;
        return nullptr;
    };
    if (ParentForm)
        if (auto found = search(*ParentForm)) return found;
    if (host.parentControls)
        if (auto found = search(*host.parentControls)) return found;
    return nullptr;
}

Picture Tabulon12::Impl::ListImage(int32_t index) const {
    if (!OggettoImageList) throw Error::MissingObject();
    return OggettoImageList->ListImage(index);
}

double Tabulon12::Impl::ValoreNumerico(std::string_view text) {
    if (text.empty()) return 0.0;
    return ParseNumber(text, CurrentSettings()).value_or(0.0);
}

double Tabulon12::Impl::ValoreNumerico(const Value& v) { return NumericValue(v, CurrentSettings()); }

std::string Tabulon12::Impl::ValoreTesto(const Value& v) { return v.ToText(CurrentSettings()); }

std::string Tabulon12::Impl::PrimoValoreQuery(const std::string& query) {
    bool openedHere = false;
    if (!BaseDati) {
        BaseDati = OpenDatabase(ConnectText());
        if (!BaseDati) {
            MessageBox("Nessun DB disponibile", MsgBoxStyle::Critical);
            return "";
        }
        openedHere = true;
    }
    std::string result;
    Step(err, [&] {
        auto rs = BaseDati->OpenRecordset(query);
        if (rs->RecordCount() > 0) result = ValoreTesto(rs->FieldValue(0));
        rs->Close();
    });
    if (openedHere) {
        Step(err, [&] { BaseDati->Close(); });
        BaseDati.reset();
    }
    return result;
}

std::string Tabulon12::DataBaseName() const { return impl_->DataBaseName; }

void Tabulon12::setDataBaseName(const std::string& New_DataBaseName) {
    auto& s = *impl_;
    s.err.Clear();
    s.DataBaseName = New_DataBaseName;
    // The open here never passes the password: a protected file stays closed until Carica.
    if (Impl::FileEsiste(s.DataBaseName))
        if (auto db = s.OpenDatabase(std::string())) s.BaseDati = std::move(db);
    if (s.err.IsSet()) {
        s.MessageBox(s.err.description, MsgBoxStyle::Plain);
        s.err.Clear();
    }
    s.PropertyChanged("DataBaseName");
}

std::string Tabulon12::ImageLista() const { return impl_->ImageLista; }

void Tabulon12::setImageLista(const std::string& New_ImageLista) {
    auto& s = *impl_;
    s.ImageLista = New_ImageLista;
    if (!New_ImageLista.empty()) {
        s.OggettoImageList = s.TrovaImageList(New_ImageLista);
        if (!s.OggettoImageList) {
            s.MessageBox("Nessuna ImageList valida è stata trovata!", MsgBoxStyle::Critical);
            return;
        }
    }
    s.PropertyChanged("ImageLista");
}

}  // namespace TabulonLib12
