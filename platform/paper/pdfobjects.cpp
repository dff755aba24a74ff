#include "platform/paper/pdfobjects.h"

#include <qpdf/Buffer.hh>
#include <qpdf/Pl_Buffer.hh>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

namespace velm {

struct PdfObjects::File {
    QPDF pdf;
};

PdfObjects::PdfObjects() : file_(std::make_unique<File>()) {
    file_->pdf.emptyPDF();
}

PdfObjects::~PdfObjects() = default;

int PdfObjects::add(const std::string& words) {
    return file_->pdf.makeIndirectObject(QPDFObjectHandle::parse(&file_->pdf, words)).getObjectID();
}

int PdfObjects::addStream(const std::string& dictionary, const std::string& bytes) {
    // Compressed at once: a long job's file is never held as it is spoken.
    Pl_Buffer packed("packed");
    Pl_Flate flate("flate", &packed, Pl_Flate::a_deflate);
    flate.write(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    flate.finish();
    QPDFObjectHandle stream = QPDFObjectHandle::newStream(&file_->pdf, packed.getBufferSharedPointer());
    QPDFObjectHandle described = QPDFObjectHandle::parse(&file_->pdf, dictionary);
    for (const std::string& key : described.getKeys())
        stream.getDict().replaceKey(key, described.getKey(key));
    stream.getDict().replaceKey("/Filter", QPDFObjectHandle::newName("/FlateDecode"));
    return file_->pdf.makeIndirectObject(stream).getObjectID();
}

int PdfObjects::reserve() {
    return file_->pdf.makeIndirectObject(QPDFObjectHandle::newNull()).getObjectID();
}

void PdfObjects::set(int number, const std::string& words) {
    file_->pdf.replaceObject(number, 0, QPDFObjectHandle::parse(&file_->pdf, words));
}

void PdfObjects::setInRoot(const std::string& key, const std::string& words) {
    file_->pdf.getRoot().replaceKey(key, QPDFObjectHandle::parse(&file_->pdf, words));
}

void PdfObjects::setInRoot(const std::string& key, int number) {
    file_->pdf.getRoot().replaceKey(key, file_->pdf.getObject(number, 0));
}

void PdfObjects::setInfo(const std::string& words) {
    file_->pdf.getTrailer().replaceKey("/Info",
                                       file_->pdf.makeIndirectObject(QPDFObjectHandle::parse(&file_->pdf, words)));
}

std::string PdfObjects::write() {
    QPDFWriter writer(file_->pdf);
    writer.setOutputMemory();
    writer.setObjectStreamMode(qpdf_o_generate);
    writer.setCompressStreams(true);
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

} // namespace velm
