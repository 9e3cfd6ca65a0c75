-- Links between the manuals lead to their HTML, but not on paper; what is only in the source tree is
-- named, not linked.
local on_paper = os.getenv("VEXNUMKR_ON_PAPER")

function Link(link)
  if link.target:match("^%a+://") or link.target:match("^#") then return link end
  if on_paper or link.target:match("^%.%./") then return link.content end
  link.target = link.target:gsub("%.md$", ".html"):gsub("%.md#", ".html#")
  return link
end

-- A manual's title is its first heading.
function Pandoc(document)
  for _, block in ipairs(document.blocks) do
    if block.t == "Header" and block.level == 1 then
      document.meta.pagetitle = pandoc.utils.stringify(block.content)
      return document
    end
  end
end
