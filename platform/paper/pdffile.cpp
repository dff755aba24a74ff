#include "platform/paper/pdffile.h"

#include "platform/base/twips.h"
#include "platform/paper/pdfobjects.h"
#include "platform/paper/pdfpage.h"
#include "platform/paper/pdfwords.h"
#include "platform/paper/printdevice.h"
#include "platform/typeset/richpicture.h"

#include <QImage>

#include <map>
#include <new>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using pdf::number;
using pdf::rectangle;
using pdf::unicode;

std::string reference(int object) {
    return PdfObjects::reference(object);
}

class File {
public:
    File(const JobPages& job, const PdfProperties& properties)
        : job_(job), properties_(properties), page_(job, fonts_), tree_(objects_.reserve()) {}

    bool addPages(const std::function<bool(std::size_t)>& progress) {
        for (std::size_t i = 0; i < job_.pages.size(); ++i) {
            if (progress && !progress(i))
                return false;
            addPage(job_.pages[i]);
        }
        return true;
    }
    QByteArray finish() {
        // The pages name fonts that are known as a whole only now.
        for (const auto& font : fonts_.all())
            objects_.set(fontObject(*font), font->embed(objects_));
        addTree();
        addOutline();
        tellProperties();
        return QByteArray::fromStdString(objects_.write());
    }

private:
    void addPage(const JobPage& page) {
        const QByteArray content = page_.content(page);
        std::string words = "<< /Type /Page /Parent " + reference(tree_) + " /MediaBox " +
                            rectangle({0, 0, job_.width / twipsPerPoint, job_.height / twipsPerPoint}) +
                            " /Resources << /Font <<";
        for (const PdfFont* font : page_.fonts())
            words += " /" + font->name().toStdString() + ' ' + reference(fontObject(*font));
        words += " >> /XObject <<";
        for (std::size_t i = 0; i < page_.pictures().size(); ++i)
            words += " /P" + std::to_string(i) + ' ' + reference(pictureObject(page_.pictures()[i]));
        words += " >> >> /Contents " + reference(objects_.addStream("<< >>", content.toStdString()));
        if (!page.links.empty()) {
            words += " /Annots [";
            for (const JobLink& link : page.links)
                words += ' ' + reference(linkObject(link));
            words += " ]";
        }
        pages_.push_back(objects_.add(words + " >>"));
    }
    void addTree() {
        std::string words = "<< /Type /Pages /Count " + std::to_string(pages_.size()) + " /Kids [";
        for (const int page : pages_)
            words += ' ' + reference(page);
        objects_.set(tree_, words + " ] >>");
        objects_.setInRoot("/Pages", tree_);
    }
    double x(double twips) const { return (twips + job_.offsetX) / twipsPerPoint; }
    double y(double twips) const { return (job_.height - twips - job_.offsetY) / twipsPerPoint; }

    int linkObject(const JobLink& link) {
        const QRectF& r = link.where;
        return objects_.add("<< /Type /Annot /Subtype /Link /Border [0 0 0] /Rect " +
                            rectangle({x(r.left()), y(r.bottom()), x(r.right()), y(r.top())}) + " /A << /S /URI /URI " +
                            pdf::bytes(link.address.toUtf8()) + " >> >>");
    }
    int fontObject(const PdfFont& font) {
        auto known = fontObjects_.find(&font);
        if (known == fontObjects_.end())
            known = fontObjects_.emplace(&font, objects_.reserve()).first;
        return known->second;
    }
    int pictureObject(const std::pair<std::uint32_t, int>& key) {
        auto known = pictureObjects_.find(key);
        if (known == pictureObjects_.end()) {
            const auto& objects = job_.sources[key.first].objects;
            const auto place = static_cast<std::size_t>(std::max(0, key.second));
            const QImage image = place < objects.size() ? pictureOf(objects[place]) : QImage();
            known = pictureObjects_.emplace(key, image.isNull() ? frameObject() : imageObject(image)).first;
        }
        return known->second;
    }
    /// In place of a picture that cannot be shown.
    int frameObject() {
        constexpr double full = 255;
        const QRgb grey = missingPictureColour;
        const QByteArray colour =
            number(qRed(grey) / full) + ' ' + number(qGreen(grey) / full) + ' ' + number(qBlue(grey) / full) + " RG ";
        return objects_.addStream("<< /Type /XObject /Subtype /Form /BBox [0 0 1 1] >>",
                                  colour.toStdString() + "0 w 0 0 1 1 re S");
    }
    int imageObject(const QImage& image) {
        const QImage plain = image.convertToFormat(QImage::Format_RGB888);
        std::string more;
        if (image.hasAlphaChannel())
            more = " /SMask " + reference(sampled(image.convertToFormat(QImage::Format_Alpha8), 1, "/DeviceGray", {}));
        return sampled(plain, 3, "/DeviceRGB", more);
    }
    int sampled(const QImage& image, std::size_t channels, const std::string& space, const std::string& more) {
        std::string samples;
        for (int row = 0; row < image.height(); ++row)
            samples.append(reinterpret_cast<const char*>(image.constScanLine(row)),
                           channels * static_cast<std::size_t>(image.width()));
        return objects_.addStream("<< /Type /XObject /Subtype /Image /Width " + std::to_string(image.width()) +
                                      " /Height " + std::to_string(image.height()) + " /ColorSpace " + space +
                                      " /BitsPerComponent 8" + more + " >>",
                                  samples);
    }
    void addOutline() {
        std::vector<const JobSource*> titled;
        for (const JobSource& source : job_.sources) {
            if (!source.title.isEmpty() && source.page >= 0 && static_cast<std::size_t>(source.page) < pages_.size())
                titled.push_back(&source);
        }
        if (titled.empty())
            return;
        const int outline = objects_.reserve();
        std::vector<int> entries;
        for (std::size_t i = 0; i < titled.size(); ++i)
            entries.push_back(objects_.reserve());
        for (std::size_t i = 0; i < titled.size(); ++i) {
            const int page = pages_[static_cast<std::size_t>(titled[i]->page)];
            std::string words = "<< /Title " + unicode(titled[i]->title) + " /Parent " + reference(outline) +
                                " /Dest [" + reference(page) + " /XYZ null " +
                                number(y(static_cast<double>(titled[i]->top))).toStdString() + " null]";
            if (i > 0)
                words += " /Prev " + reference(entries[i - 1]);
            if (i + 1 < titled.size())
                words += " /Next " + reference(entries[i + 1]);
            objects_.set(entries[i], words + " >>");
        }
        objects_.set(outline, "<< /Type /Outlines /First " + reference(entries.front()) + " /Last " +
                                  reference(entries.back()) + " /Count " + std::to_string(entries.size()) + " >>");
        objects_.setInRoot("/Outlines", outline);
        if (entries.size() > 1)
            objects_.setInRoot("/PageMode", "/UseOutlines");
    }
    void tellProperties() {
        if (!properties_.language.isEmpty())
            objects_.setInRoot("/Lang", pdf::bytes(properties_.language.toLatin1()));
        objects_.setInRoot("/ViewerPreferences", "<< /DisplayDocTitle true >>");
        std::string info = "<< /Title " + unicode(properties_.title);
        if (properties_.created.isValid()) {
            const QString moment = properties_.created.toUTC().toString(u"'D:'yyyyMMddHHmmss'Z'"_s);
            info += " /CreationDate " + pdf::bytes(moment.toLatin1());
        }
        objects_.setInfo(info + " >>");
    }

    const JobPages& job_;
    const PdfProperties& properties_;
    PdfObjects objects_;
    PdfFonts fonts_;
    PdfPage page_;
    int tree_; ///< of the pages
    std::vector<int> pages_;
    std::map<const PdfFont*, int> fontObjects_;
    std::map<std::pair<std::uint32_t, int>, int> pictureObjects_;
};

} // namespace

QByteArray pdfOf(const JobPages& job, const PdfProperties& properties,
                 const std::function<bool(std::size_t page)>& progress) {
    try {
        File file(job, properties);
        return file.addPages(progress) ? file.finish() : QByteArray();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const PrintFailure&) {
        throw;
    } catch (const std::exception& failure) {
        throw PrintFailure(failure.what());
    }
}

} // namespace velm
