#include "tests/support/windows/host_application.h"

namespace platen::test {

BEGIN_MESSAGE_MAP(HostWindow, CWnd)
ON_WM_TIMER()
ON_MESSAGE(kHostMessage, &ThisClass::OnHostMessage)
END_MESSAGE_MAP()

}  // namespace platen::test
