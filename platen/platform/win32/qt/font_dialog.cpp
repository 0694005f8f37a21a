#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include <platen/platform/win32/qt/common_dialog.h>
#include <platen/platform/win32/qt/device_figures.h>
#include <platen/platform/win32/qt/list_field.h>

namespace platen::win32 {
namespace {

/// Identifiers of the fields and boxes.
constexpr int kFaceField = 0x0470;
constexpr int kStyleField = 0x0471;
constexpr int kSizeField = 0x0472;
constexpr int kStrikeOutBox = 0x0410;
constexpr int kUnderlineBox = 0x0411;

constexpr int kPointsPerInch = 72;
constexpr int kUsualPoints = 10;
constexpr int kLargestPoints = 1638;
constexpr std::size_t kStyleRoom = 64;

struct Style {
    QString name;
    int weight;
    bool isItalic;
};

std::vector<Style> StylesOf(const QString& face) {
    std::vector<Style> styles;
    for (const QString& name : QFontDatabase::styles(face)) {
        // Oblique counts, too, which the database's own answer leaves out.
        constexpr int kAnySize = 10;
        styles.push_back({name, QFontDatabase::weight(face, name),
                          QFontDatabase::font(face, name, kAnySize).italic()});
    }
    std::ranges::stable_sort(
        styles, {}, [](const Style& style) { return std::pair(style.weight, style.isItalic); });
    if (styles.empty()) {
        styles = {{QStringLiteral("Regular"), FW_NORMAL, false},
                  {QStringLiteral("Italic"), FW_NORMAL, true},
                  {QStringLiteral("Bold"), FW_BOLD, false},
                  {QStringLiteral("Bold Italic"), FW_BOLD, true}};
    }
    return styles;
}

/// Of the same slant if there is one, and the nearest in weight.
int NearestStyle(const std::vector<Style>& styles, int weight, bool isItalic) {
    const auto distance = [=](const Style& style) {
        constexpr int kOtherSlant = 10000;
        return std::abs(style.weight - weight) + (style.isItalic == isItalic ? 0 : kOtherSlant);
    };
    return static_cast<int>(std::ranges::min_element(styles, {}, distance) - styles.begin());
}

/// What a record can name, in the order of the alphabet.
QStringList Faces(bool fixedPitchOnly) {
    QStringList faces;
    for (const QString& face : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(face) && face.toUtf8().size() < LF_FACESIZE &&
            (!fixedPitchOnly || QFontDatabase::isFixedPitch(face))) {
            faces.push_back(face);
        }
    }
    return faces;
}

QString FaceOf(const LOGFONT& font) {
    return QString::fromUtf8(font.lfFaceName,
                             static_cast<qsizetype>(qstrnlen(font.lfFaceName, LF_FACESIZE)));
}

int PixelsPerInch() {
    return DisplayFigures().perInch.cy;
}

/// A height in whole points, as the system's dialog counts.
int PointsOf(const LOGFONT& font) {
    double pixels = -static_cast<double>(font.lfHeight);
    if (font.lfHeight > 0) {
        constexpr int kSample = 1000;
        QFont face(FaceOf(font));
        face.setPixelSize(kSample);
        pixels = font.lfHeight * kSample / QFontMetricsF(face).height();
    }
    const auto points = static_cast<int>(std::lround(pixels * kPointsPerInch / PixelsPerInch()));
    return font.lfHeight == 0 ? kUsualPoints : std::clamp(points, 1, kLargestPoints);
}

/// What the dialog starts with when nothing is asked for.
LOGFONT UsualFont() {
    LOGFONT font{};
    font.lfWeight = FW_NORMAL;
    const QByteArray face = QApplication::font().family().toUtf8();
    std::memcpy(font.lfFaceName, face.data(),
                std::min<std::size_t>(static_cast<std::size_t>(face.size()), LF_FACESIZE - 1));
    return font;
}

class FontDialog : public CommonDialog<QDialog> {
  public:
    FontDialog(HWND handle, QWidget* parent, CHOOSEFONT& record)
        : CommonDialog(handle, parent),
          m_record(record),
          m_initial((record.Flags & CF_INITTOLOGFONTSTRUCT) != 0 ? *record.lpLogFont : UsualFont()),
          m_color(GetRValue(record.rgbColors), GetGValue(record.rgbColors),
                  GetBValue(record.rgbColors)) {
        setWindowTitle(tr("Font"));
        Arrange();
        m_face->SetChoices(Faces((record.Flags & CF_FIXEDPITCHONLY) != 0));
        m_face->SetText(FaceOf(m_initial));
        OfferStyles();
        if ((record.Flags & CF_USESTYLE) != 0 && record.lpszStyle != nullptr) {
            UseStyle(QString::fromUtf8(record.lpszStyle));
        }
        OfferSizes();
        m_strikeOut->setChecked(m_initial.lfStrikeOut != 0);
        m_underline->setChecked(m_initial.lfUnderline != 0);
        ShowColor();
        Follow();
        m_face->Field()->selectAll();
        m_face->Field()->setFocus();
    }

    [[nodiscard]] std::vector<DialogPart> Parts() const {
        return {{m_face->Field(), kFaceField, "EDIT"},
                {m_style->Field(), kStyleField, "EDIT"},
                {m_size->Field(), kSizeField, "EDIT"},
                {m_strikeOut, kStrikeOutBox, "BUTTON"},
                {m_underline, kUnderlineBox, "BUTTON"},
                {m_buttons->button(QDialogButtonBox::Ok), IDOK, "BUTTON"},
                {m_buttons->button(QDialogButtonBox::Cancel), IDCANCEL, "BUTTON"}};
    }

  protected:
    void Confirm() override {
        if (!HasFace() && !IsInitialFace()) {
            Refuse(m_face, tr("There is no font of that name. Choose one from the list."));
        } else if (Tenths() < Smallest() * 10 || Tenths() > Largest() * 10) {
            Refuse(m_size,
                   tr("The size must be a number from %1 to %2.").arg(Smallest()).arg(Largest()));
        } else {
            Store();
            CommonDialog::Confirm();
        }
    }

  private:
    void Arrange() {
        auto* const grid = new QGridLayout(this);
        m_face = new ListField(tr("&Font:"), true, this);
        m_style = new ListField(tr("Font st&yle:"), false, this);
        m_size = new ListField(tr("&Size:"), true, this);
        grid->addWidget(m_face, 0, 0);
        grid->addWidget(m_style, 0, 1);
        grid->addWidget(m_size, 0, 2);
        grid->setColumnStretch(0, 5);
        grid->setColumnStretch(1, 3);
        grid->setColumnStretch(2, 2);
        grid->setRowStretch(0, 1);
        auto* const lower = new QHBoxLayout;
        lower->addWidget(MakeEffects());
        lower->addWidget(MakeSample(), 1);
        grid->addLayout(lower, 1, 0, 1, 3);
        m_note = new QLabel(this);
        m_note->setWordWrap(true);
        grid->addWidget(m_note, 2, 0, 1, 3);
        m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(m_buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
        connect(m_buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
        grid->addWidget(m_buttons, 3, 0, 1, 3);
        m_face->onChange = [this] {
            OfferStyles();
            Follow();
        };
        m_style->onChange = [this] {
            m_styleIsChosen = true;
            Follow();
        };
        m_size->onChange = [this] { Follow(); };
        const QFontMetrics metrics(font());
        resize(metrics.averageCharWidth() * 78, metrics.height() * 27);
    }

    QWidget* MakeEffects() {
        auto* const group = new QGroupBox(tr("Effects"), this);
        auto* const column = new QVBoxLayout(group);
        m_strikeOut = new QCheckBox(tr("Stri&keout"), group);
        m_underline = new QCheckBox(tr("&Underline"), group);
        m_colorButton = new QPushButton(tr("&Color..."), group);
        for (QCheckBox* const box : {m_strikeOut, m_underline}) {
            column->addWidget(box);
            connect(box, &QCheckBox::toggled, this, [this] { Follow(); });
        }
        column->addWidget(m_colorButton);
        column->addStretch();
        m_colorButton->setAutoDefault(false);
        connect(m_colorButton, &QPushButton::clicked, this, [this] { AskForColor(); });
        group->setVisible((m_record.Flags & CF_EFFECTS) != 0);
        return group;
    }

    QWidget* MakeSample() {
        auto* const group = new QGroupBox(tr("Sample"), this);
        auto* const column = new QVBoxLayout(group);
        m_sample = new QLabel(QStringLiteral("AaBbYyZz"), group);
        m_sample->setAlignment(Qt::AlignCenter);
        m_sample->setAutoFillBackground(true);
        m_sample->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        m_sample->setBackgroundRole(QPalette::Base);
        m_sample->setForegroundRole(QPalette::WindowText);
        // A large font is cut off; the dialog keeps its size.
        m_sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        m_sample->setMinimumHeight(fontMetrics().height() * 4);
        column->addWidget(m_sample);
        return group;
    }

    void AskForColor() {
        const QColor color = QColorDialog::getColor(m_color, this, tr("Font Color"),
                                                    QColorDialog::DontUseNativeDialog);
        if (color.isValid()) {
            m_color = color;
            ShowColor();
            Follow();
        }
    }

    void ShowColor() {
        QPixmap swatch(m_colorButton->iconSize());
        swatch.fill(m_color);
        m_colorButton->setIcon(swatch);
    }

    /// The face's own styles; the one that is nearest to the present one is chosen.
    void OfferStyles() {
        const bool isFirst = m_styles.empty();
        const int before = std::max(m_style->Index(), 0);
        const Style wanted =
            isFirst || !m_styleIsChosen
                ? Style{{}, static_cast<int>(m_initial.lfWeight), m_initial.lfItalic != 0}
                : m_styles[static_cast<std::size_t>(before)];
        const int weight = wanted.weight == FW_DONTCARE ? int{FW_NORMAL} : wanted.weight;
        m_styles = StylesOf(m_face->Text());
        QStringList names;
        for (const Style& style : m_styles) {
            names.push_back(style.name);
        }
        m_style->SetChoices(names);
        m_style->Select(NearestStyle(m_styles, weight, wanted.isItalic));
    }

    void UseStyle(const QString& name) {
        const auto found = std::ranges::find_if(m_styles, [&name](const Style& style) {
            return style.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found != m_styles.end() && &*found != &CurrentStyle()) {
            m_style->Select(static_cast<int>(found - m_styles.begin()));
            m_styleIsChosen = true;
        }
    }

    void OfferSizes() {
        QStringList sizes;
        for (const int size : {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72}) {
            if (size >= Smallest() && size <= Largest()) {
                sizes.push_back(QString::number(size));
            }
        }
        m_size->SetChoices(sizes);
        m_initialSize = QString::number(PointsOf(m_initial));
        m_size->SetText(m_initialSize);
    }

    [[nodiscard]] int Smallest() const {
        return (m_record.Flags & CF_LIMITSIZE) != 0 ? std::max(m_record.nSizeMin, 1) : 1;
    }
    [[nodiscard]] int Largest() const {
        return (m_record.Flags & CF_LIMITSIZE) != 0 ? std::min(m_record.nSizeMax, kLargestPoints)
                                                    : kLargestPoints;
    }

    /// In tenths of a point; 0 for what is no size.
    [[nodiscard]] int Tenths() const {
        bool isNumber = false;
        const double points = m_size->Text().replace(',', '.').toDouble(&isNumber);
        const bool isPossible = isNumber && points > 0 && points <= kLargestPoints;
        return isPossible ? static_cast<int>(std::lround(points * 10)) : 0;
    }

    [[nodiscard]] const Style& CurrentStyle() const {
        return m_styles[static_cast<std::size_t>(std::max(m_style->Index(), 0))];
    }
    [[nodiscard]] bool HasFace() const { return m_face->Index() >= 0; }
    [[nodiscard]] bool IsInitialFace() const {
        return m_face->Field()->text() == FaceOf(m_initial);
    }

    /// The sample shows what is chosen.
    void Follow() {
        const Style& style = CurrentStyle();
        QFont font(m_face->Text());
        font.setPointSizeF(std::max(Tenths(), 10) / 10.0);
        font.setWeight(QFont::Weight(style.weight));
        font.setItalic(style.isItalic);
        font.setUnderline(m_underline->isChecked());
        font.setStrikeOut(m_strikeOut->isChecked());
        m_sample->setFont(font);
        QPalette palette = m_sample->palette();
        palette.setColor(QPalette::WindowText, m_color);
        m_sample->setPalette(palette);
        const bool isMissing = !HasFace() && IsInitialFace() && !m_face->Text().isEmpty();
        m_note->setText(
            isMissing
                ? tr("%1 is not installed. The sample shows another font.").arg(m_face->Text())
                : QString());
    }

    void Refuse(ListField* field, const QString& reason) {
        QMessageBox::warning(this, windowTitle(), reason);
        field->Field()->setFocus();
        field->Field()->selectAll();
    }

    /// What the user left alone stays as it was, to the last bit.
    void Store() {
        LOGFONT font = m_initial;
        if (!IsInitialFace()) {
            const QByteArray face = m_face->Text().toUtf8();
            std::memset(font.lfFaceName, 0, sizeof(font.lfFaceName));
            std::memcpy(font.lfFaceName, face.data(), static_cast<std::size_t>(face.size()));
            font.lfPitchAndFamily =
                QFontDatabase::isFixedPitch(m_face->Text()) ? FIXED_PITCH : VARIABLE_PITCH;
        }
        if (m_styleIsChosen) {
            font.lfWeight = CurrentStyle().weight;
            font.lfItalic = CurrentStyle().isItalic ? 1 : 0;
        }
        if (m_size->Text() != m_initialSize || font.lfHeight == 0) {
            constexpr int kTenthsPerInch = 10 * kPointsPerInch;
            font.lfHeight = -static_cast<LONG>(
                std::lround(double(Tenths()) * PixelsPerInch() / kTenthsPerInch));
            font.lfWidth = 0;
        }
        if (m_strikeOut->isChecked() != (font.lfStrikeOut != 0)) {
            font.lfStrikeOut = m_strikeOut->isChecked() ? 1 : 0;
        }
        if (m_underline->isChecked() != (font.lfUnderline != 0)) {
            font.lfUnderline = m_underline->isChecked() ? 1 : 0;
        }
        *m_record.lpLogFont = font;
        m_record.iPointSize = Tenths();
        m_record.rgbColors = RGB(m_color.red(), m_color.green(), m_color.blue());
        if ((m_record.Flags & CF_USESTYLE) != 0 && m_record.lpszStyle != nullptr) {
            qstrncpy(m_record.lpszStyle, CurrentStyle().name.toUtf8().constData(), kStyleRoom);
        }
    }

    CHOOSEFONT& m_record;
    LOGFONT m_initial;
    QColor m_color;
    QString m_initialSize;
    std::vector<Style> m_styles;
    bool m_styleIsChosen = false;
    ListField* m_face = nullptr;
    ListField* m_style = nullptr;
    ListField* m_size = nullptr;
    QCheckBox* m_strikeOut = nullptr;
    QCheckBox* m_underline = nullptr;
    QPushButton* m_colorButton = nullptr;
    QLabel* m_sample = nullptr;
    QLabel* m_note = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

}  // namespace
}  // namespace platen::win32

BOOL ChooseFont(LPCHOOSEFONT choice) {
    using namespace platen::win32;
    DialogHook hook;
    if ((choice->Flags & CF_ENABLEHOOK) != 0) {
        hook = {choice->lpfnHook, reinterpret_cast<LPARAM>(choice)};
    }
    return RunCommonDialog(choice->hwndOwner, hook,
                           [choice](HWND handle, QWidget* owner) {
                               auto* const dialog = new FontDialog(handle, owner, *choice);
                               return MadeDialog{dialog, dialog->Parts()};
                           })
               ? TRUE
               : FALSE;
}
