// How long drawing a form of 50 controls takes, and encoding the picture as
// JPEG and as a bitmap.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "desktop/BmpFile.h"
#include "desktop/CFormRenderer.h"
#include "desktop/cJPEG.h"
#include "host/CW_IDEVB6FormProcessor.h"
#include "host/vb6/Vb6FormFile.h"

namespace {

using namespace scriv;

std::string Control(const std::string& type, const std::string& name, int row, int column, const std::string& extra)
{
    return "   Begin VB." + type + " " + name + " \r\n" + extra + "      Height          =   315\r\n"
        + "      Left            =   " + std::to_string(120 + column * 1800) + "\r\n"
        + "      TabIndex        =   " + std::to_string(row * 5 + column) + "\r\n"
        + "      Top             =   " + std::to_string(120 + row * 450) + "\r\n"
        + "      Width           =   1695\r\n   End\r\n";
}

// Ten rows of a label, a text box, a check box, an option button and a
// command button: 50 controls on a sizable form with a caption.
std::string FiftyControlForm()
{
    std::string text = "VERSION 5.00\r\nBegin VB.Form frmBench \r\n   Caption         =   \"Fifty controls\"\r\n"
                       "   ClientHeight    =   4800\r\n   ClientWidth     =   9240\r\n";
    for (int row = 0; row < 10; ++row) {
        std::string n = std::to_string(row);
        text += Control("Label", "lblField" + n, row, 0, "      Caption         =   \"Field &" + n + ":\"\r\n");
        text += Control("TextBox", "txtField" + n, row, 1, "      Text            =   \"Value " + n + "\"\r\n");
        text += Control("CheckBox", "chkField" + n, row, 2,
            "      Caption         =   \"Checked\"\r\n      Value           =   " + std::to_string(row % 2) + "\r\n");
        text += Control("OptionButton", "optField" + n, row, 3, "      Caption         =   \"Option\"\r\n");
        text += Control("CommandButton", "cmdField" + n, row, 4, "      Caption         =   \"&Go " + n + "\"\r\n");
    }
    return text + "End\r\n";
}

struct BenchForm {
    BenchForm()
        : file(std::make_unique<Vb6FormFile>(Vb6FormFile::Parse(FiftyControlForm(), "frmBench.frm")))
        , processor(std::make_unique<CW_IDEVB6FormProcessor>(*file))
        , form(processor->FindActualFormOfComponent(processor->Component(), false, false))
    {
    }
    Picture Render() { return CFormRenderer(*processor, form, *file).Render().picture; }

    std::unique_ptr<Vb6FormFile> file;
    std::unique_ptr<CW_IDEVB6FormProcessor> processor;
    IHostObject* form;
};

void BM_RenderFiftyControls(benchmark::State& state)
{
    BenchForm bench;
    for (auto _ : state) {
        Picture picture = bench.Render();
        benchmark::DoNotOptimize(picture.Bytes().data());
    }
}
BENCHMARK(BM_RenderFiftyControls)->Unit(benchmark::kMillisecond);

void BM_EncodeJpeg(benchmark::State& state)
{
    Picture picture = BenchForm().Render();
    std::string path = (std::filesystem::temp_directory_path() / "scrivant-render-bench.jpg").string();
    for (auto _ : state) {
        cJPEG jpeg;
        jpeg.CreateFromPicture(picture);
        int number = 0;
        std::string text;
        benchmark::DoNotOptimize(JPEG_Save(jpeg, path, 85, false, number, text));
    }
    std::filesystem::remove(path);
}
BENCHMARK(BM_EncodeJpeg)->Unit(benchmark::kMillisecond);

void BM_EncodeBmp(benchmark::State& state)
{
    Picture picture = BenchForm().Render();
    for (auto _ : state) {
        std::string bytes = EncodeBmp(picture);
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(BM_EncodeBmp)->Unit(benchmark::kMillisecond);

}  // namespace
