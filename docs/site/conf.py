"""The site's form, for Sphinx. build.py beside it lays out the pages first."""

import os

project = "VostelObj"
release = os.environ["VOSTEL_VERSION"]
extensions = ["myst_parser", "breathe"]
source_suffix = {".md": "markdown"}
root_doc = "index"

myst_heading_anchors = 3    # links to headings, as in the plain pages
suppress_warnings = ["myst.header", "misc.highlighting_failure"]

breathe_projects = {"vostel": os.environ["VOSTEL_XML"]}
breathe_default_project = "vostel"
breathe_domain_by_extension = {"h": "c", "hpp": "cpp"}
breathe_default_members = ("members",)
primary_domain = "c"
c_extra_keywords = []    # "imaginary" is a parameter
c_id_attributes = ["VOSTEL_CALL"]
cpp_id_attributes = ["VOSTEL_CALL"]

html_theme = "furo"
html_title = f"VostelObj {release}"
html_copy_source = False
html_show_sphinx = False
html_show_copyright = False
html_static_path = ["_static"]
html_css_files = ["site.css"]
html_theme_options = {
    "light_css_variables": {"color-brand-primary": "#0b5cad", "color-brand-content": "#0b5cad"},
    "dark_css_variables": {"color-brand-primary": "#6cb2f7", "color-brand-content": "#6cb2f7"},
}
