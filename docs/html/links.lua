-- Pages become files of one folder: "../jex.md#exit-codes" is "jex.html#exit-codes" there, and a wide table scrolls.
function Link(link)
  if not link.target:match('^%a+:') then
    link.target = link.target:gsub('^%.%./', ''):gsub('^guide/', ''):gsub('%.md$', '.html'):gsub('%.md#', '.html#')
  end
  return link
end

function Image(image)
  image.src = image.src:gsub('^guide/', '')
  return image
end

function Table(table)
  return pandoc.Div({ table }, { class = 'wide' })
end
