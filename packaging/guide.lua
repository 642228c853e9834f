-- A manual as a page: named by its first heading, its links lead to the pages of the others.
function Pandoc(document)
  for _, block in ipairs(document.blocks) do
    if block.t == "Header" and block.level == 1 then
      document.meta.title = document.meta.title or block.content
    end
  end
  document.blocks = document.blocks:filter(function(block) return block.t ~= "Header" or block.level > 1 end)
  return document
end

function Link(link)
  if not link.target:match("^%a+:") then
    link.target = link.target:gsub("%.md$", ".html"):gsub("%.md#", ".html#")
  end
  return link
end
