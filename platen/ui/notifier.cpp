#include <platen/ui/notifier.h>

static CRuntimeClass* BaseOfNotifier() {
    return RUNTIME_CLASS(CCmdTarget);
}

CRuntimeClass Notifier::classNotifier = {
    "Notifier", static_cast<int>(sizeof(Notifier)), 0xFFFF, nullptr, &BaseOfNotifier, nullptr};
static const AFX_CLASSINIT g_initNotifier(&Notifier::classNotifier);

// A new object counts as unmodified: it has nothing yet that could be lost.
Notifier::Notifier() {
    zeroInit();
}

Notifier::Notifier(const Notifier& other) = default;
Notifier& Notifier::operator=(const Notifier& other) = default;
Notifier::~Notifier() = default;

void Notifier::zeroInit() {
    m_bModified = 0;
}

CRuntimeClass* Notifier::GetRuntimeClass() const {
    return &classNotifier;
}

int Notifier::mouseMove(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::lButtonDown(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::lButtonUp(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::lButtonDblClk(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::rButtonDown(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::rButtonUp(unsigned int /*flags*/, CPoint /*point*/) {
    return 0;
}

int Notifier::keyChar(unsigned int /*character*/, unsigned int /*repeats*/,
                      unsigned int /*flags*/) {
    return 0;
}

int Notifier::keyDown(unsigned int /*key*/, unsigned int /*repeats*/, unsigned int /*flags*/) {
    return 0;
}

int Notifier::keyUp(unsigned int /*key*/, unsigned int /*repeats*/, unsigned int /*flags*/) {
    return 0;
}

int Notifier::onRename(TXSTATE /*state*/, Notifier* /*other*/) {
    return 1;
}

int Notifier::onSelect(int selected) {
    return selected;
}

int Notifier::onSize(TXSTATE /*state*/, long /*width*/, long /*height*/) {
    return 1;
}

int Notifier::onSize(TXSTATE /*state*/) {
    return 1;
}

int Notifier::onMove(TXSTATE /*state*/, long /*x*/, long /*y*/) {
    return 1;
}

int Notifier::onMove(TXSTATE /*state*/) {
    return 1;
}

Notifier* Notifier::getData() {
    return nullptr;
}

int Notifier::onDestroy() {
    return 0;
}

int Notifier::remove() {
    return 1;
}

int Notifier::remove(Notifier* /*other*/) {
    return 1;
}

void Notifier::draw(CDC* /*context*/) {}

void Notifier::doAction(unsigned int /*action*/, Notifier* /*first*/, Notifier* /*second*/) {}

void Notifier::doAction(unsigned int /*action*/, Notifier* /*other*/) {}

void Notifier::doAction(unsigned int /*action*/) {}

unsigned int Notifier::getAction() {
    return 0;
}

CString Notifier::save(CString& text) {
    return text;
}

CString Notifier::load(CString& text) {
    return text;
}

int Notifier::isModified() {
    return m_bModified;
}

void Notifier::setInspector(CObject* /*inspector*/) {}

CObject* Notifier::getInspector() {
    return nullptr;
}

int Notifier::bGetEnableDrawFlag() const {
    return m_bEnableDrawFlag;
}

void Notifier::vSetEnableDrawFlag(int flag) {
    m_bEnableDrawFlag = flag;
}
