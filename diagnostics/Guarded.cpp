#include "diagnostics/Guarded.h"

#include "diagnostics/comdefines.h"
#include "framework/base/Exceptions.h"

void ReportCurrent(xTWhere where) noexcept
{
    try {
        throw;
    } catch (const std::exception& e) {
        LogReportStd(where.file, where.line, &e);
    } catch (CException* e) {
        LogReportMfc(where.file, where.line, e);
        e->Delete();
    } catch (...) {
        LogReport(where.file, where.line, nullptr);
    }
}
