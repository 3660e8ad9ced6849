#pragma once

#include <gtest/gtest.h>

#include <string>

#include "model/CScrivantParameters.h"
#include "support/CoreFixture.h"
#include "uidesc/CXmlControl.h"
#include "uidesc/CXmlForm.h"

namespace scriv::test {

// The program's data folders, fresh parameters, and the hot spot correction
// switched back off after each test.
class DescriptionFixture : public CoreFixture {
protected:
    void TearDown() override
    {
        SetApplyVistaHotSpotCorrection(false);
        CoreFixture::TearDown();
    }

    // Loads a description from text and fails the test when it does not load.
    void LoadForm(CXmlForm& form, const std::string& xml)
    {
        ASSERT_TRUE(form.LoadXml(xml)) << form.XmlParseError().Describe();
    }

    static void IdentifyBy(int value) { Parameters().SetIdentifyControls(value); }
};

}  // namespace scriv::test
