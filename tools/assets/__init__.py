"""What the tools of this folder share: pictures, fonts and the forms in which the program embeds them."""
