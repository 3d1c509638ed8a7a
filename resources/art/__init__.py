"""The shared pieces and the drawings of Quillmere's toolbar pictures."""
