#include "api/ApiBaseInit.h"

#include "api/ApiLogLogger.h"
#include "api/ApiPmClassTypes.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "api/ApiVorTools.h"
#include "api/LocalFilesCacheClientFilesManager.h"

void apiBaseGmInit() {
  ApiLogLogger::instance();
  LocalFilesCacheClientFilesManager::the();
}

void apiBasePmInit() {
  ApiPmClassTypeDataMgr::the();
  ApiPmXmlCacheDocumentMgr::the();
  ApiPmSessionManager::the();
  ApiVorToolsIdConverter::the();
  ApiVorToolsFieldsCache::the();
}
