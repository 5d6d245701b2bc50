-- What becomes of a page of the guide when it is made: its first heading is its title, links lead to the
-- pages that are made, pictures lie in pictures/, and tables may be wider than a telephone.

function Link(link)
  local path, anchor = link.target:match('^([%w%-]+)%.md(.*)$')
  if path then link.target = path .. '.html' .. anchor end
  return link
end

function Image(image)
  image.src = image.src:gsub('^.*/', 'pictures/')
  return image
end

function Table(table)
  return pandoc.Div({table}, pandoc.Attr('', {'wide'}))
end

function Pandoc(document)
  for _, block in ipairs(document.blocks) do
    if block.t == 'Header' and block.level == 1 then
      document.meta.title = pandoc.MetaInlines(block.content)
      break
    end
  end
  return document
end
