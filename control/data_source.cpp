// Where the rows come from: the database the control opens or is given, and the host's image
// list, found by name.
#include "control/tabulon12_impl.h"
#include "grid/values.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

std::shared_ptr<Database> Tabulon12::Impl::OpenDatabase(const std::string& connect, Steps& steps) {
    std::shared_ptr<Database> db;
    steps([&] {
        if (host.engine == nullptr) throw Error::MissingObject();
        OpenOptions options;
        options.exclusive = false;
        options.readOnly = true;
        options.connect = connect;
        db = host.engine->OpenDatabase(DataBaseName, options);
    });
    return db;
}

// The first control of the host form, then of the controls around the control, whose name
// equals `name` without regard to case; its kind plays no part.
std::shared_ptr<HostControl> Tabulon12::Impl::TrovaImageList(const std::string& name) const {
    if (name.empty()) return nullptr;
    if (ParentForm)
        if (auto found = ParentForm->Find(name)) return found;
    if (host.parentControls)
        if (auto found = host.parentControls->Find(name)) return found;
    return nullptr;
}

std::string Tabulon12::Impl::PrimoValoreQuery(const std::string& query) {
    Steps steps;
    bool openedHere = false;
    if (!BaseDati) {
        BaseDati = OpenDatabase(ConnectText(Password), steps);
        if (!BaseDati) {
            MessageBox("Nessun DB disponibile", MsgBoxStyle::Critical);
            return "";
        }
        openedHere = true;
    }
    std::string result;
    steps([&] {
        auto rs = BaseDati->OpenRecordset(query);
        if (rs->RecordCount() > 0) result = ValoreTesto(rs->FieldValue(0));
        rs->Close();
    });
    if (openedHere) {
        steps([&] { BaseDati->Close(); });
        BaseDati.reset();
    }
    return result;
}

std::string Tabulon12::DataBaseName() const { return impl_->DataBaseName; }

void Tabulon12::setDataBaseName(const std::string& New_DataBaseName) {
    auto& s = *impl_;
    Steps steps;
    s.DataBaseName = New_DataBaseName;
    // The open here never passes the password: a protected file stays closed until Carica.
    if (ColumnChooser::FileEsiste(s.DataBaseName))
        if (auto db = s.OpenDatabase(std::string(), steps)) s.BaseDati = std::move(db);
    if (steps.Pending()) s.MessageBox(steps.Description(), MsgBoxStyle::Plain);
    s.PropertyChanged("DataBaseName");
}

std::string Tabulon12::ImageLista() const { return impl_->ImageLista; }

void Tabulon12::setImageLista(const std::string& New_ImageLista) {
    auto& s = *impl_;
    s.ImageLista = New_ImageLista;
    if (!New_ImageLista.empty()) {
        s.imageList.Set(s.TrovaImageList(New_ImageLista));
        if (!s.imageList.Present()) {
            s.MessageBox("Nessuna ImageList valida è stata trovata!", MsgBoxStyle::Critical);
            return;
        }
    }
    s.PropertyChanged("ImageLista");
}

}  // namespace TabulonLib12
