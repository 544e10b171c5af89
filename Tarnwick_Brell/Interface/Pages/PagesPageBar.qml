import TarnwickBrell.Models

PageBar {
    required property PagesPageModel content

    page: content
}
